#include "src/chart/CSheetPen.h"

#include "platform/db/AcDbText.h"
#include "src/facts/curve_form.h"

namespace {

constexpr double kHeavyLineWidth = 0.9;
constexpr Adesk::UInt16 kHeavyLineColor = 7;
constexpr Adesk::UInt16 kDotColor = 1;
constexpr double kTextWidthFactor = 0.7;

}  // namespace

void CSheetPen::Line(double x1, double y1, double x2, double y2) const {
    tools_.DrawLine(x1, y1, x2, y2, sheet_);
}

void CSheetPen::HeavyLine(double x1, double y1, double x2, double y2) const {
    tools_.DrawWideLine(x1, y1, x2, y2, kHeavyLineWidth, kHeavyLineColor, sheet_);
}

void CSheetPen::Text(double x, double y, const std::string& text, double height) const {
    tools_.DrawText(sheet_, x, y, text, height);
}

void CSheetPen::StackedText(double x, double y, const std::string& coded, double height) const {
    std::vector<TextPiece> pieces;
    double totalWidth = 0.0;
    tools_.SplitStackedText(coded, pieces, height, totalWidth);
    for (const TextPiece& piece : pieces) {
        Text(x + piece.dx, y + piece.dy, piece.text, piece.height);
    }
}

void CSheetPen::PlainText(double x, double y, const std::string& text, double height,
                          double rotation) const {
    if (text.empty()) {
        return;
    }
    auto entity = std::make_unique<AcDbText>(AcGePoint3d(x, y, 0.0), text.c_str(),
                                             AcDbObjectId::kNull, height, rotation);
    entity->setWidthFactor(kTextWidthFactor);
    AcDbObjectId id;
    tools_.AppendEntity(entity.release(), id, sheet_);
}

void CSheetPen::Dot(double x, double y) const {
    tools_.DrawSolidDot(x, y, kDotRadius, kDotColor, sheet_);
}
