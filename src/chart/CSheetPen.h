#pragma once

#include <string>

#include "src/chart/CDrawTools.h"

/// The drawing operations bound to one sheet. Neither is owned.
class CSheetPen {
public:
    CSheetPen(const CDrawTools& tools, AcDbDatabase* sheet) : tools_(tools), sheet_(sheet) {}

    void Line(double x1, double y1, double x2, double y2) const;
    void HeavyLine(double x1, double y1, double x2, double y2) const;
    // Texts start with their left end on the baseline; an empty one draws nothing.
    void Text(double x, double y, const std::string& text, double height) const;
    /// A text with super- and subscripts in the code of CDrawTools::SplitStackedText.
    void StackedText(double x, double y, const std::string& coded, double height) const;
    /// One text entity in the drawing's own style, turned by `rotation` radians about its start.
    void PlainText(double x, double y, const std::string& text, double height,
                   double rotation = 0.0) const;
    /// The mark of a measured point.
    void Dot(double x, double y) const;
    double Width(const std::string& text, double height) const {
        return tools_.TextWidth(text, height);
    }

    const CDrawTools& Tools() const { return tools_; }
    AcDbDatabase* Sheet() const { return sheet_; }

private:
    const CDrawTools& tools_;
    AcDbDatabase* sheet_;
};
