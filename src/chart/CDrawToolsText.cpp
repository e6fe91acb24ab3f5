#include <algorithm>
#include <string_view>

#include "platform/db/AcDbText.h"
#include "src/chart/CDrawTools.h"
#include "src/core/gbk_text.h"

namespace {

constexpr Adesk::UInt16 kChartTextColor = 7;
constexpr double kTextWidthFactor = 0.7;
// Single precision, like the charts that exist: every position that follows a text depends on it.
constexpr float kCharacterWidth = 0.7F;
constexpr float kSingleByteHeight = 0.8F;
constexpr double kSingleByteRaise = 0.1;

bool HasHighBit(char byte) {
    return (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

/// Bytes of the run of double-byte or of single-byte characters at `start`. The second byte of a
/// character never ends a run, whatever its value.
std::size_t RunLength(std::string_view text, std::size_t start) {
    const bool doubleByte = HasHighBit(text[start]);
    std::size_t end = start;
    while (end < text.size() && HasHighBit(text[end]) == doubleByte) {
        end += CharLength(text, end);
    }
    return end - start;
}

std::unique_ptr<AcDbText> MakeRun(double x, double y, const std::string& run, double height,
                                  double rotation, Adesk::UInt16 colorIndex) {
    auto text = std::make_unique<AcDbText>();
    text->setPosition({x, y, 0.0});
    text->setHeight(height);
    text->setRotation(rotation);
    text->setTextString(run.c_str());
    text->setWidthFactor(kTextWidthFactor);
    AcCmColor color;
    color.setColorIndex(colorIndex);
    text->setColor(color, false);
    return text;
}

// Cursors of a stacked label: where the next piece of that kind starts.
enum Cursor { kMain, kUpper, kLower, kCursorCount };

struct PieceStyle {
    char code;
    double dy;      // of the label's height
    double height;  // of the label's height
    Cursor cursor;
};
constexpr PieceStyle kPieceStyles[] = {{'!', 0.0, 1.0, kMain},
                                       {'@', 0.6, 0.6, kUpper},
                                       {'#', 0.6, 0.4, kUpper},
                                       {'$', -0.2, 0.6, kLower},
                                       {'%', -0.3, 0.4, kLower}};

/// The style of a code; a character that is no code counts as the last one.
const PieceStyle& StyleOf(char code) {
    const auto* last = std::end(kPieceStyles) - 1;
    return *std::find_if(std::begin(kPieceStyles), last,
                         [code](const PieceStyle& style) { return style.code == code; });
}

bool IsCode(char c) {
    return StyleOf(c).code == c;
}

/// End of the segment of the code whose text starts at `start`: the next other code or the end.
std::size_t SegmentEnd(std::string_view coded, std::size_t start, char code) {
    std::size_t end = start;
    while (end < coded.size() && (coded[end] == code || !IsCode(coded[end]))) {
        end += CharLength(coded, end);
    }
    return end;
}

}  // namespace

int CDrawTools::DrawText(AcDbDatabase* target, double x, double y, const std::string& text,
                         double height) const {
    if (!text.empty()) {
        DrawMixedText(x, y, text, height, 0.0, kChartTextColor, target);
    }
    return 1;
}

void CDrawTools::DrawMixedText(double x, double y, const std::string& text, double height,
                               double rotation, Adesk::UInt16 colorIndex,
                               AcDbDatabase* target) const {
    for (std::size_t start = 0; start < text.size();) {
        const std::string run = text.substr(start, RunLength(text, start));
        const bool doubleByte = HasHighBit(run[0]);
        const double runHeight = doubleByte ? height : height * kSingleByteHeight;
        const double runY = doubleByte ? y : y + kSingleByteRaise * height;
        Append(target, MakeRun(x, runY, run, runHeight, rotation, colorIndex));
        x += TextWidth(run, runHeight);
        start += run.size();
    }
}

double CDrawTools::TextWidth(const std::string& text, double height) const {
    int characters = 0;
    for (std::size_t i = 0; i < text.size(); i += CharLength(text, i)) {
        ++characters;
    }
    return characters * height * kCharacterWidth;
}

void CDrawTools::SplitStackedText(const std::string& coded, std::vector<TextPiece>& pieces,
                                  double height, double& totalWidth) const {
    pieces.clear();
    double cursors[kCursorCount] = {};
    for (std::size_t position = 0; position < coded.size();) {
        const PieceStyle& style = StyleOf(coded[position]);
        const std::size_t start = position + CharLength(coded, position);
        position = SegmentEnd(coded, start, style.code);
        TextPiece piece{coded.substr(start, position - start), cursors[style.cursor],
                        style.dy * height, style.height * height};
        cursors[style.cursor] += TextWidth(piece.text, piece.height);
        cursors[kMain] = cursors[style.cursor];
        if (style.cursor == kMain) {
            cursors[kUpper] = cursors[kLower] = cursors[kMain];
        }
        pieces.push_back(std::move(piece));
    }
    totalWidth = cursors[kMain];
}
