#include "src/chart/CCompositionTable.h"

#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
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
