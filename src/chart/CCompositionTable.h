#pragma once

#include <string>
#include <vector>

#include "platform/ge/AcGePoint3d.h"
#include "src/chart/CSheetPen.h"
#include "src/core/curve_shape.h"

/// The composition table of a result chart: one column a sieve, grouped by fractions, with size
/// range and percentage. Text heights follow ChartTextHeight.
class CCompositionTable {
public:
    /// `sizes` in mm, largest first; all but negative ones get a column. The table is centred in
    /// the sheet's frame; how high it stands is set before it is drawn.
    CCompositionTable(const CSheetPen& pen, const std::vector<double>& sizes);

    int ColumnCount() const { return static_cast<int>(sizeTexts_.size()); }
    /// More columns than leave room for the index block beside them: it stands below then.
    bool IsLong() const { return ColumnCount() > kCompactTableColumns; }
    void SetTop(double top) { top_ = top; }
    double Top() const { return top_; }
    double Left() const;
    double ColumnWidth() const { return columnWidth_; }
    /// Left edge of a column, from 0; of the column count: right edge of the last one.
    double ColumnLeft(int column) const { return Left() + column * columnWidth_; }

    void DrawLines() const;
    void DrawFractionNames() const;
    void DrawColumns() const;
    /// Writes a column's percentage.
    void DrawPercentage(int column, const std::string& text) const;

private:
    double Width() const;
    bool StartsFraction(int column) const;
    void DrawSize(int column, const std::string& text, double drop) const;

    const CSheetPen& pen_;
    double columnWidth_;
    double top_ = 0.0;
    std::vector<std::string> sizeTexts_;  // one a column
    std::vector<int> fractionColumns_;    // boulders to clay
};

/// Draws the names of the composition indices beside the columns of the table, or below them when
/// it is long. Gives the points where the curve writes the values: d60, Cu, d30, d10, Cc.
AcGePoint3dArray DrawIndexBlock(const CSheetPen& pen, const CCompositionTable& table);
/// Writes the soil class line into the block.
void DrawSoilClass(const CSheetPen& pen, const CCompositionTable& table,
                   const std::string& soilClass);
