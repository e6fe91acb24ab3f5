#include "src/chart/cumulative_chart.h"

#include "src/chart/chart_curve.h"
#include "src/chart/chart_grid.h"
#include "src/common/module_state.h"
#include "src/core/curve_shape.h"
#include "src/core/gbk_text.h"
#include "src/core/number_format.h"
#include "src/db/record_loaders.h"

namespace {

constexpr double kTableGap = 0.5;  // between a size line and the text of the value table after it

const char* const kValueRows[] = {"!d$95", "!d$60", "!d$50", "!d$30", "!d$10", "!Cu", "!Cc"};
// Intermediate lines that stop short of the value table.
constexpr int kShortLines = 7;

/// False when the samples cannot be read; a depth that is not known is left out.
bool MakeSamplingDepthText(const GrainSizeRecord& record, std::string& text) {
    text = "取样深度:"_gbk;
    double depth = 0.0;
    double thickness = 0.0;
    bool failed = false;
    if (LoadSampleDepth(record, depth, thickness, &failed) == 1 && thickness > 0.0) {
        text += " " + FormatFixed(depth, 2) + "-" + FormatFixed(depth + thickness, 2) + "m";
    }
    return !failed;
}

void DrawHeader(const CSheetPen& pen, const GrainSizeRecord& record,
                const std::string& samplingDepth) {
    ChartTextHeight = 4.0;
    ChartLineGap = 1.5;
    const auto write = [&pen](double dx, const std::string& text) {
        pen.Text(ChartOriginX + dx, ChartOriginY, text, ChartTextHeight);
    };
    if (record.kind == RecordKind::layer) {
        write(64.0, "土层编号: "_gbk + record.sample);
        return;
    }
    write(10.0, "钻孔编号: "_gbk + record.borehole);
    write(64.0, "土样编号: "_gbk + record.sample);
    write(116.0, samplingDepth);
}

void DrawSizeTitle(const CSheetPen& pen, const CurveGrid& grid) {
    pen.Text(grid.Left() + grid.gridWidth / 2.0 - 3.0 * ChartTextHeight,
             grid.Bottom() - 2.5 * (ChartTextHeight + ChartLineGap) - 2.0, "粒径 d(mm)"_gbk,
             ChartTextHeight + 1.0);
}

/// The lines at 95, 85, … 5 percent.
void DrawIntermediateLines(const CSheetPen& pen, const CurveGrid& grid) {
    const double step = grid.gridHeight / 10.0;
    for (int i = 0; i < 10; ++i) {
        const double y = grid.Top() - step / 2.0 - step * i;
        pen.Line(grid.Left(), y, i < kShortLines ? grid.XOfSize(0.003) : grid.Right(), y);
    }
}

/// The names of the values; gives the points where the curve writes the values themselves.
AcGePoint3dArray DrawValueTable(const CSheetPen& pen, const CurveGrid& grid) {
    AcGePoint3dArray valuePoints;
    double y = grid.Top() + ChartTextHeight / 2.0;
    for (const char* row : kValueRows) {
        y -= grid.gridHeight / 10.0;
        pen.StackedText(grid.XOfSize(0.003) + kTableGap, y, row, ChartTextHeight);
        valuePoints.append({grid.XOfSize(0.002) + kTableGap, y, 0.0});
    }
    return valuePoints;
}

int DrawChart(RecordKind kind, const CSheetPen& pen) {
    ChartData data;
    std::string samplingDepth;
    if (!LoadChartData(kind, data) ||
        (kind == RecordKind::sample && !MakeSamplingDepthText(data.record, samplingDepth))) {
        return 0;
    }
    DrawHeader(pen, data.record, samplingDepth);

    ChartTextHeight = 3.0;
    ChartLineGap = 1.0;
    const CurveGrid grid =
        GridOf(data.record, ChartKind::cumulative,
               {ChartOriginX, ChartOriginY - (ChartTextHeight + ChartLineGap), 0.0});
    DrawPercentLines(pen, grid, 1, ChartTextHeight / 2.0);
    DrawSizeTitle(pen, grid);
    DrawPercentTitles(pen, grid);
    DrawSizeAxis(pen, grid, ChartTextHeight + ChartLineGap, ChartTextHeight + ChartLineGap + 1.0);
    DrawIntermediateLines(pen, grid);

    const AcGePoint3dArray points = CurvePoints(data.record, data.passing, grid);
    DrawDots(pen, points);
    const AcGePoint3dArray valuePoints = DrawValueTable(pen, grid);
    AddCurve(pen, data.record, grid, points, valuePoints);
    return 1;
}

}  // namespace

int DrawCumulativeChart(const CDrawTools& tools, AcDbDatabase* sheet) {
    return DrawChart(RecordKind::sample, {tools, sheet});
}

int DrawLayerCumulativeChart(const CDrawTools& tools, AcDbDatabase* sheet) {
    return DrawChart(RecordKind::layer, {tools, sheet});
}
