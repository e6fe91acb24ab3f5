#pragma once

#include <optional>
#include <vector>

#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "platform/ge/AcGePoint3d.h"
#include "src/core/CurveGrid.h"
#include "src/core/GrainSizeRecord.h"
#include "src/core/characteristic_diameters.h"

// From a record to its curve: percent passing, grid, plotted points, spline, diameters. The charts
// and the curve entity draw with these functions; whoever wants to know what would be drawn needs
// no drawing.

/// The forms of chart. A curve's diameters depend a little on the form: the spline is laid through
/// points on the sheet, and the grids have different proportions.
enum class ChartKind {
    result,     ///< with composition table, two on an A4 sheet
    cumulative  ///< six on an A3 sheet
};
/// The form that projects of that standard code get: cumulative charts for 2.
ChartKind ChartKindOf(int standardCode);

/// Columns of a result chart's composition table up to which its indices stand beside it. With more
/// they stand below, and the grid is lower.
inline constexpr int kCompactTableColumns = 15;
/// Columns of 8.4 units that the frame of a result sheet, 175 units wide, has room for.
inline constexpr int kMostTableColumns = 20;

/// Width and height of a grid in drawing units.
struct GridSize {
    double width;
    double height;
};
GridSize GridSizeOf(const GrainSizeRecord& record, ChartKind kind);
/// The grid of the record's chart with its top left corner at `origin`.
CurveGrid GridOf(const GrainSizeRecord& record, ChartKind kind, const AcGePoint3d& origin);

/// By how much the items' masses may exceed the total.
inline constexpr double kMassTolerance = 0.00001;

/// For each item the share of the total mass finer than its size, 0 to 1; mass of a sample that is
/// on no sieve counts as finer than all. False for a sample whose masses add up to more than its
/// total mass, or whose total mass is not above 0 or infinite; `passing` is then unchanged.
bool ComputePassing(const GrainSizeRecord& record, std::vector<double>& passing);

/// The plotted points, from the coarsest sieve to the finest; the pan (size 0) has none.
AcGePoint3dArray CurvePoints(const GrainSizeRecord& record, const std::vector<double>& passing,
                             const CurveGrid& grid);

/// The curve through the points. It is not valid for fewer than two distinct ones: these are drawn
/// as dots without a curve.
AcGeCubicSplineCurve3d CurveThrough(const AcGePoint3dArray& points);

/// Replaces `diameters` by the eight read off the curve where it first meets their levels, in mm,
/// three decimals, in the order of DiameterIndex; kLevelNotReached where it meets one nowhere, and
/// everywhere when the curve is not valid. Where a level cannot be read, since curve or grid are
/// not finite, reading stops: gives that level, and the diameters before it are what there is.
const DiameterLevel* ReadDiameters(const AcGeCubicSplineCurve3d& curve, const CurveGrid& grid,
                                   std::vector<double>& diameters);

/// How a chart's curve is laid through the measured points.
enum class CurveForm {
    plain,   ///< through these alone
    guarded  ///< with the further points of GuardedPoints
};
/// The points that the curve is laid through.
AcGePoint3dArray FitPoints(const AcGePoint3dArray& measured, const CurveGrid& grid, CurveForm form);

/// What a chart shows of a record, and what is read off it.
struct CurveShape {
    CurveGrid grid;
    AcGePoint3dArray measured;     ///< points on the sheet
    AcGePoint3dArray points;       ///< the same, with those that guarding adds
    AcGeCubicSplineCurve3d curve;  ///< through them
    std::vector<double> diameters;
};
/// The curve of a record as its chart would draw it; nothing where ComputePassing refuses it. Where
/// the chart stands on the sheet makes no difference but in the last digits of positions.
std::optional<CurveShape> ShapeOf(const GrainSizeRecord& record, ChartKind kind,
                                  CurveForm form = CurveForm::plain,
                                  const AcGePoint3d& origin = {});
