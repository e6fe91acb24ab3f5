#include "src/chart/chart_grid.h"

#include "src/common/module_state.h"
#include "src/core/gbk_text.h"

namespace {

constexpr int kPercentSteps = 10;
constexpr double kLabelGap = 2.0;  // between the grid and the percentage labels

// A little less than a right angle, as these titles have always been written.
constexpr double kUpright = 1.57075;
constexpr double kLeftTitleGap = 7.0;
constexpr double kRightTitleGap = 11.0;

constexpr int kLinesPerDecade = 10;
constexpr int kNarrowDecades = 5;
constexpr int kWideDecades = 6;
constexpr double kSmallestSize = 0.001;
constexpr const char* kSizeLabels[] = {"1000", "100", "10", "1", "0.1", "0.01", "0.001"};

void DrawPercentLabels(const CSheetPen& pen, const CurveGrid& grid, int step, double baseline) {
    const std::string finer = std::to_string(100 - 10 * step);
    pen.Text(grid.Left() - kLabelGap - pen.Width(finer, ChartTextHeight) / 2.0, baseline, finer,
             ChartTextHeight);
    if (RightAxisOption) {
        pen.Text(grid.Right() + kLabelGap, baseline, std::to_string(10 * step), ChartTextHeight);
    }
}

void DrawDecadeLines(const CSheetPen& pen, const CurveGrid& grid, double decade, bool isLast) {
    for (int i = 0; i < kLinesPerDecade; ++i) {
        const bool isRightEdge = isLast && i == kLinesPerDecade - 1;
        const double x =
            isRightEdge ? grid.Right() : grid.XOfSize(decade - i * decade / kLinesPerDecade);
        pen.Line(x, grid.Top(), x, grid.Bottom());
    }
}

void DrawSizeLabel(const CSheetPen& pen, const CurveGrid& grid, double size, const char* label,
                   double drop) {
    pen.Text(grid.XOfSize(size) - pen.Width(label, ChartTextHeight) / 3.0, grid.Bottom() - drop,
             label, ChartTextHeight);
}

}  // namespace

void DrawPercentLines(const CSheetPen& pen, const CurveGrid& grid, int labelEvery,
                      double labelDrop) {
    for (int step = 0; step <= kPercentSteps; ++step) {
        const double y = grid.Top() - step * grid.gridHeight / kPercentSteps;
        pen.Line(grid.Left(), y, grid.Right(), y);
        if (step % labelEvery == 0) {
            DrawPercentLabels(pen, grid, step, y - labelDrop);
        }
    }
    pen.Line(grid.Left(), grid.Top(), grid.Left(), grid.Bottom());
}

void DrawPercentTitles(const CSheetPen& pen, const CurveGrid& grid) {
    const double height = ChartTextHeight + 1.0;
    const double y = grid.Top() - grid.gridHeight / 2.0 - height * 7.0 * 0.7;
    pen.PlainText(grid.Left() - kLeftTitleGap, y, "小于某粒径的土质量百分比数(%)"_gbk, height,
                  kUpright);
    if (RightAxisOption) {
        pen.PlainText(grid.Right() + kRightTitleGap, y, "大于某粒径的土质量百分比数(%)"_gbk, height,
                      kUpright);
    }
}

void DrawSizeAxis(const CSheetPen& pen, const CurveGrid& grid, double labelDrop,
                  double lastLabelDrop) {
    const bool isWide = grid.wideAxis == 1;
    const int decades = isWide ? kWideDecades : kNarrowDecades;
    const char* const* label = kSizeLabels + (isWide ? 0 : 1);
    double decade = isWide ? 1000.0 : 100.0;
    for (int i = 0; i < decades; ++i) {
        DrawDecadeLines(pen, grid, decade, i == decades - 1);
        DrawSizeLabel(pen, grid, decade, *label++, labelDrop);
        decade /= 10.0;
    }
    DrawSizeLabel(pen, grid, kSmallestSize, *label, lastLabelDrop);
}
