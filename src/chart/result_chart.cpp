#include "src/chart/result_chart.h"

#include <cmath>

#include "src/chart/CCompositionTable.h"
#include "src/chart/chart_curve.h"
#include "src/chart/chart_grid.h"
#include "src/common/module_state.h"
#include "src/core/curve_shape.h"
#include "src/core/gbk_text.h"
#include "src/core/percentages.h"
#include "src/core/soil_classification.h"

namespace {

constexpr double kGridDrop = 28.0;  // of the grid's top edge below the chart's origin
constexpr double kShownAbove = 1e-5;

/// Left end of a text of that width centred in the sheet's frame.
double CentredInFrame(double width) {
    return ChartOriginX + (FrameWidth - width) / 2.0;
}

void DrawHeader(const CSheetPen& pen, const GrainSizeRecord& record) {
    ChartTextHeight = 4.0;
    ChartLineGap = 1.5;
    const double pitch = ChartTextHeight + ChartLineGap;
    const std::string key = record.kind == RecordKind::layer
                                ? "土层编号: "_gbk + record.sample
                                : "试样编号: "_gbk + record.borehole + "-" + record.sample;
    pen.Text(ChartOriginX + 2.0, ChartOriginY - 3.0 * pitch, key, ChartTextHeight);
    const std::string title = "颗粒级配曲线"_gbk;
    pen.Text(CentredInFrame(pen.Width(title, ChartTextHeight)), ChartOriginY - 4.0 * pitch, title,
             ChartTextHeight);
}

CurveGrid MakeGrid(const GrainSizeRecord& record) {
    const double width = GridSizeOf(record, ChartKind::result).width;
    return GridOf(record, ChartKind::result,
                  {CentredInFrame(width), ChartOriginY - kGridDrop, 0.0});
}

/// The titles below the grid are centred by their width at the chart's text height, and written
/// one unit taller than that.
void DrawTitlesBelow(const CSheetPen& pen, const CurveGrid& grid) {
    const auto write = [&pen](const std::string& title, double baseline) {
        pen.Text(CentredInFrame(pen.Width(title, ChartTextHeight)), baseline, title,
                 ChartTextHeight + 1.0);
    };
    write("粒径 d(mm)"_gbk, grid.Bottom() - 10.0);
    write("颗粒组成(%)及颗粒组成指标"_gbk, grid.Bottom() - 16.0);
}

void DrawGrid(const CSheetPen& pen, const CurveGrid& grid) {
    DrawPercentLines(pen, grid, 2, 1.6);
    DrawPercentTitles(pen, grid);
    DrawSizeAxis(pen, grid, 5.0, 5.0);
    DrawTitlesBelow(pen, grid);
}

void DrawTable(CCompositionTable& table, const CurveGrid& grid) {
    table.SetTop(grid.Bottom() - 4.2 * (ChartTextHeight + ChartLineGap) - ChartLineGap);
    table.DrawLines();
    table.DrawFractionNames();
    table.DrawColumns();
}

void DrawPercentages(const CCompositionTable& table, const GrainSizeRecord& shown) {
    const double total = shown.kind == RecordKind::sample ? shown.totalMass : 1.0;
    for (int i = 0; i < table.ColumnCount(); ++i) {
        const double amount = shown.amounts[static_cast<std::size_t>(i)];
        if (std::abs(amount) > kShownAbove) {
            table.DrawPercentage(i, ShownPercentage(amount, total));
        }
    }
}

/// The record as percentages and soil class show it.
GrainSizeRecord ShownRecord(const GrainSizeRecord& record, int columns) {
    GrainSizeRecord shown = record;
    if (record.kind == RecordKind::sample) {
        NudgeToHundred(std::span(shown.amounts).first(static_cast<std::size_t>(columns)),
                       shown.totalMass);
    }
    return shown;
}

int DrawChart(ChartData& data, const CSheetPen& pen) {
    DrawHeader(pen, data.record);

    ChartTextHeight = 3.0;
    ChartLineGap = 1.0;
    CCompositionTable table(pen, data.record.sizes);
    const CurveGrid grid = MakeGrid(data.record);
    DrawGrid(pen, grid);
    DrawTable(table, grid);

    const AcGePoint3dArray points = CurvePoints(data.record, data.passing, grid);
    DrawDots(pen, points);
    const AcGePoint3dArray valuePoints = DrawIndexBlock(pen, table);
    AddCurve(pen, data.record, grid, points, valuePoints);

    const GrainSizeRecord shown = ShownRecord(data.record, table.ColumnCount());
    DrawPercentages(table, shown);
    DrawSoilClass(pen, table, ClassifySoil(shown, ProjectContext.GCBZ));
    return 1;
}

}  // namespace

int DrawResultChart(const CDrawTools& tools, AcDbDatabase* sheet) {
    ChartData data;
    if (!LoadChartData(RecordKind::sample, data)) {
        return 0;
    }
    CurrentMethod = data.record.testMethod;
    return DrawChart(data, {tools, sheet});
}

int DrawLayerResultChart(const CDrawTools& tools, AcDbDatabase* sheet) {
    ChartData data;
    return LoadChartData(RecordKind::layer, data) ? DrawChart(data, {tools, sheet}) : 0;
}
