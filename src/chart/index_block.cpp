#include "src/chart/index_block.h"

#include "platform/ge/AcGePoint2d.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"

namespace {

/// Where the items start, and what differs in the coefficient of uniformity.
struct IndexBlockPlaces {
    AcGePoint2d d60;
    AcGePoint2d uniformity;
    double uniformityBarRise;
    double uniformityDenominatorDrop;
    AcGePoint2d d30;
    AcGePoint2d d10;
    AcGePoint2d curvature;
    AcGePoint2d soilClass;
};

IndexBlockPlaces PlacesBeside(const CCompositionTable& table) {
    const double first = table.ColumnLeft(table.ColumnCount()) + 2.0;
    const double second = table.ColumnLeft(table.ColumnCount()) + 2.2 * table.ColumnWidth();
    const double top = table.Top();
    return {.d60 = {first, top - 4.0},
            .uniformity = {second, top - 5.5},
            .uniformityBarRise = 5.5 - (2.0 + 4.0 / 3.0 + 0.8),
            .uniformityDenominatorDrop = 1.5,
            .d30 = {first, top - 10.0},
            .d10 = {first, top - 16.0},
            .curvature = {second, top - 16.0},
            .soilClass = {first, top - 24.0}};
}

IndexBlockPlaces PlacesBelow(const CCompositionTable& table) {
    const double y = table.Top() - 34.0;
    const auto x = [&table](double columns) {
        return table.Left() + columns * table.ColumnWidth();
    };
    return {.d60 = {x(1.0), y},
            .uniformity = {x(6.9), y},
            .uniformityBarRise = 1.3,
            .uniformityDenominatorDrop = 2.0,
            .d30 = {x(2.8) + 2.0, y},
            .d10 = {x(4.8) + 2.0, y},
            .curvature = {x(9.9), y},
            .soilClass = {x(13.2), y}};
}

IndexBlockPlaces PlacesOf(const CCompositionTable& table) {
    return table.IsLong() ? PlacesBelow(table) : PlacesBeside(table);
}

/// Draws the block's items in the chart's text height; every offset is made of text widths.
class CIndexBlock {
public:
    explicit CIndexBlock(const CSheetPen& pen) : pen_(pen), height_(ChartTextHeight) {}

    void DrawDiameter(const AcGePoint2d& start, const char* label) {
        pen_.StackedText(start.x, start.y, label, height_);
        AddValuePoint(start.x + Width("d50=") / 2.0, start.y);
    }

    void DrawUniformity(const IndexBlockPlaces& places) {
        const auto [x, y] = places.uniformity;
        const double name = Width("Cu=");
        pen_.Text(x, y, "Cu=", height_);
        pen_.StackedText(x + name, y + 2.0, "!d$60", height_);
        pen_.StackedText(x + name, y - places.uniformityDenominatorDrop, "!d$10", height_);
        DrawBar(x + 0.8 * name, y + places.uniformityBarRise, 5.2);
        AddValuePoint(x + Width("Cu=d60") * 5.0 / 6.0, y + 0.3);
    }

    void DrawCurvature(const AcGePoint2d& start) {
        const auto [x, y] = start;
        const double name = Width("Cc=");
        pen_.Text(x, y, "Cc=", height_);
        pen_.StackedText(x + 1.5 * name, y + 2.0, "!d@2$30", height_);
        pen_.StackedText(x + name, y - 2.0, "!d$10", height_);
        DrawMultiplicationSign(x, y - 2.0);
        pen_.StackedText(x + 2.0 * name, y - 2.0, "!d$60", height_);
        DrawBar(x + 0.8 * name, y + 1.2, 11.7);
        AddValuePoint(x + 2.7 * name, y + 0.3);
    }

    const AcGePoint3dArray& ValuePoints() const { return valuePoints_; }

private:
    double Width(const char* text) const { return pen_.Width(text, height_); }
    void AddValuePoint(double x, double y) { valuePoints_.append({x, y, 0.0}); }
    void DrawBar(double x, double y, double length) const { pen_.Line(x, y, x + length, y); }
    void DrawMultiplicationSign(double x, double baseline) const {
        const double left = x + 5.0 * Width("c");
        const double right = x + 5.6 * Width("c");
        const double bottom = baseline - 0.2;
        const double top = baseline + 1.9;
        pen_.Line(left, bottom, right, top);
        pen_.Line(left, top, right, bottom);
    }

    const CSheetPen& pen_;
    double height_;
    AcGePoint3dArray valuePoints_;
};

}  // namespace

AcGePoint3dArray DrawIndexBlock(const CSheetPen& pen, const CCompositionTable& table) {
    const IndexBlockPlaces places = PlacesOf(table);
    CIndexBlock block(pen);
    block.DrawDiameter(places.d60, "!d$60");
    block.DrawUniformity(places);
    block.DrawDiameter(places.d30, "!d$30");
    block.DrawDiameter(places.d10, "!d$10");
    block.DrawCurvature(places.curvature);
    return block.ValuePoints();
}

void DrawSoilClass(const CSheetPen& pen, const CCompositionTable& table,
                   const std::string& soilClass) {
    const AcGePoint2d place = PlacesOf(table).soilClass;
    pen.Text(place.x, place.y, "土试样分类:"_gbk + soilClass, ChartTextHeight);
}
