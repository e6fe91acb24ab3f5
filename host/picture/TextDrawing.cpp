#include "host/picture/TextDrawing.h"

#include <algorithm>
#include <utility>

#include "host/picture/FontLibrary.h"

namespace picture {

namespace {
constexpr double kUnderlineHeight = -0.2;
constexpr double kOverlineHeight = 1.2;
constexpr double kSingleByteWidth = 0.8;
}  // namespace

void TextDrawing::draw(std::span<const TextCharacter> characters) {
    std::vector<double> pens{0.0};
    for (const TextCharacter& character : characters) {
        if (const StrokeGlyph* const glyph = strokesOf(character)) {
            drawStrokes(*glyph);
        } else {
            drawInstalled(character);
        }
        pens.push_back(pen_);
    }
    endRun();
    drawBars(characters, pens, &TextCharacter::underlined, kUnderlineHeight);
    drawBars(characters, pens, &TextCharacter::overlined, kOverlineHeight);
}

/// Double-byte characters are the big font's first; a font of many characters may have them too.
const StrokeGlyph* TextDrawing::strokesOf(const TextCharacter& character) {
    if (character.doubleByte) {
        ShapeFont* const bigFont = fonts_.shapeFont(style_.bigFontFileName());
        const StrokeGlyph* const glyph = bigFont != nullptr ? bigFont->glyph(character) : nullptr;
        if (glyph != nullptr) {
            return glyph;
        }
    }
    ShapeFont* const font = fonts_.shapeFont(style_.fileName());
    return font != nullptr ? font->glyph(character) : nullptr;
}

void TextDrawing::drawStrokes(const StrokeGlyph& glyph) {
    endRun();
    std::vector<Point> placed;
    for (const std::vector<Point>& stroke : glyph.strokes) {
        placed.clear();
        for (const Point point : stroke) {
            placed.push_back(frame_.map({pen_ + point.x, point.y}));
        }
        list_.addPolyline(placed, colorIndex_, lineWeight_);
    }
    pen_ += glyph.advance * tracking_;
}

void TextDrawing::drawInstalled(const TextCharacter& character) {
    if (run_.cells.empty() || run_.fullWidth != character.doubleByte) {
        endRun();
        run_.cellToWorld = frame_;
        run_.fullWidth = character.doubleByte;
        run_.cellWidth = character.doubleByte ? 1.0 : kSingleByteWidth;
        run_.font = fonts_.installedFont(
            character.doubleByte ? style_.bigFontFileName() : style_.fileName(),
            character.doubleByte);
    }
    run_.cells.push_back({character.unicode, pen_});
    pen_ += run_.cellWidth * std::max(1.0, tracking_);
}

void TextDrawing::endRun() {
    list_.addGlyphs(std::exchange(run_, {}), colorIndex_);
}

void TextDrawing::drawBars(std::span<const TextCharacter> characters,
                           const std::vector<double>& pens, bool TextCharacter::*drawn,
                           double height) {
    for (std::size_t i = 0; i < characters.size();) {
        std::size_t end = i;
        while (end < characters.size() && characters[end].*drawn) {
            ++end;
        }
        if (end > i) {
            const Point bar[] = {frame_.map({pens[i], height}), frame_.map({pens[end], height})};
            list_.addPolyline(bar, colorIndex_, lineWeight_);
        }
        i = end + 1;
    }
}

}  // namespace picture
