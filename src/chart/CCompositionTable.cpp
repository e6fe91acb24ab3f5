#include "src/chart/CCompositionTable.h"

#include "platform/ge/AcGePoint3d.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/core/number_format.h"

namespace {

// Lower bounds of the fractions' sieve sizes, mm: boulders, cobbles, gravel, sand, silt, clay. Each
// lies just under the nominal size, so that the sieve of that size belongs to the coarser fraction.
constexpr double kFractionBounds[] = {199.9, 19.9, 1.9, 0.0489, 0.00489, -1e-5};
constexpr int kFractionCount = 6;

// Depths below the table's top edge.
constexpr double kNameRow = 4.0;
constexpr double kNameBaseline = 3.5;
constexpr double kUpperSizeBaseline = 7.5;
constexpr double kSignBaseline = 11.5;
constexpr double kLowerSizeBaseline = 15.5;
constexpr double kUnitBaseline = 19.5;
constexpr double kSizeRow = 20.8;
constexpr double kPercentageBaseline = 26.3;
constexpr double kBody = 28.0;
constexpr double kLongTable = 37.6;

// Columns' widths that the index block takes beside the columns.
constexpr double kIndexBlockColumns = 5.5;
// Size texts of fewer bytes are centred, longer ones start near the column's left edge.
constexpr std::size_t kCentredBelowBytes = 4;

int FractionOf(double size) {
    int fraction = 0;
    while (fraction < kFractionCount && !(size > kFractionBounds[fraction])) {
        ++fraction;
    }
    return fraction;
}

/// The fraction's two characters, set apart when there is room for it.
std::string FractionName(int fraction, bool severalColumns) {
    static const char* const kinds[kFractionCount] = {"漂"_gbk, "卵"_gbk, "砾"_gbk,
                                                      "砂"_gbk, "粉"_gbk, "粘"_gbk};
    return std::string(kinds[fraction]) + (severalColumns ? "  " : "") + "粒"_gbk;
}

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

CCompositionTable::CCompositionTable(const CSheetPen& pen, const std::vector<double>& sizes)
    : pen_(pen),
      columnWidth_(pen.Width("5555", ChartTextHeight)),
      fractionColumns_(kFractionCount) {
    for (double size : sizes) {
        const int fraction = FractionOf(size);
        if (fraction < kFractionCount) {
            ++fractionColumns_[static_cast<std::size_t>(fraction)];
            sizeTexts_.push_back(FormatSizeLabel(size));
        }
    }
}

double CCompositionTable::Width() const {
    return (ColumnCount() + (IsLong() ? 0.0 : kIndexBlockColumns)) * columnWidth_;
}

double CCompositionTable::Left() const {
    return ChartOriginX + (FrameWidth - Width()) / 2.0;
}

void CCompositionTable::DrawLines() const {
    const double left = Left();
    const double right = left + Width();
    const double bottom = top_ - (IsLong() ? kLongTable : kBody);
    pen_.Line(left, top_, right, top_);
    pen_.Line(left, top_ - kBody, right, top_ - kBody);
    pen_.Line(left, top_, left, bottom);
    pen_.Line(right, top_, right, bottom);
    if (IsLong()) {
        pen_.Line(left, bottom, right, bottom);
    }
    for (double row : {kNameRow, kSizeRow}) {
        pen_.Line(left, top_ - row, ColumnLeft(ColumnCount()), top_ - row);
    }
}

void CCompositionTable::DrawFractionNames() const {
    int column = 0;
    for (int fraction = 0; fraction < kFractionCount; ++fraction) {
        const int columns = fractionColumns_[static_cast<std::size_t>(fraction)];
        if (columns > 0) {
            const std::string name = FractionName(fraction, columns > 1);
            const double room = columns * columnWidth_ - pen_.Width(name, ChartTextHeight);
            pen_.Text(ColumnLeft(column) + room / 2.0, top_ - kNameBaseline, name, ChartTextHeight);
        }
        column += columns;
    }
}

bool CCompositionTable::StartsFraction(int column) const {
    int start = 0;
    for (int fraction = 1; fraction < kFractionCount; ++fraction) {
        start += fractionColumns_[static_cast<std::size_t>(fraction - 1)];
        if (column == start) {
            return true;
        }
    }
    return false;
}

void CCompositionTable::DrawSize(int column, const std::string& text, double drop) const {
    const double indent = text.size() < kCentredBelowBytes
                              ? (columnWidth_ - pen_.Width(text, ChartTextHeight)) / 2.0
                              : columnWidth_ / 6.0;
    pen_.Text(ColumnLeft(column) + indent, top_ - drop, text, ChartTextHeight);
}

void CCompositionTable::DrawColumns() const {
    for (int i = 0; i < ColumnCount(); ++i) {
        const double left = ColumnLeft(i);
        pen_.Line(left, StartsFraction(i) ? top_ : top_ - kNameRow, left, top_ - kBody);
        const std::string upper = i == 0 ? "" : sizeTexts_[static_cast<std::size_t>(i - 1)];
        DrawSize(i, upper, kUpperSizeBaseline);
        DrawSize(i, sizeTexts_[static_cast<std::size_t>(i)], kLowerSizeBaseline);
        pen_.Text(left + columnWidth_ / 3.0, top_ - kSignBaseline, upper.empty() ? ">" : "~",
                  ChartTextHeight);
        pen_.Text(left + columnWidth_ / 6.0 - 0.6, top_ - kUnitBaseline, "(mm)", ChartTextHeight);
    }
    const double right = ColumnLeft(ColumnCount());
    pen_.Line(right, top_, right, top_ - kBody);
}

void CCompositionTable::DrawPercentage(int column, const std::string& text) const {
    pen_.Text(ColumnLeft(column) + columnWidth_ / 4.0, top_ - kPercentageBaseline, text,
              ChartTextHeight);
}

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
