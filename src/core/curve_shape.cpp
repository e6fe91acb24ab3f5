#include "src/core/curve_shape.h"

#include <algorithm>
#include <cmath>

#include "src/core/guarded_curve.h"
#include "src/core/number_format.h"

namespace {

constexpr int kCumulativeStandard = 2;
constexpr GridSize kCumulativeGrid = {160.0, 65.0};
constexpr GridSize kResultGrid = {120.0, 50.0};
constexpr GridSize kGridAboveLongTable = {120.0, 40.0};

bool ComputeSamplePassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    const std::vector<double>& masses = record.amounts;
    double retained = 0.0;
    for (double mass : masses) {
        retained += mass;
    }
    const bool weighed = record.totalMass > 0.0 && std::isfinite(record.totalMass);
    if (!weighed || retained - record.totalMass > kMassTolerance) {
        return false;
    }
    // From the finest item up, so that what is finer is a sum and not a difference of large masses.
    double finer = record.totalMass - retained;
    passing.assign(masses.size(), 0.0);
    for (std::size_t i = masses.size(); i-- > 0;) {
        passing[i] = finer / record.totalMass;
        finer += masses[i];
    }
    return true;
}

void ComputeLayerPassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    passing.clear();
    double coarser = 0.0;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] != 0.0) {
            coarser += record.amounts[i];
        }
        passing.push_back(1.0 - coarser);
    }
}

bool CanBeRead(const AcGeCubicSplineCurve3d& curve, const CurveGrid& grid, double y) {
    return std::isfinite(curve.endParam()) && std::isfinite(grid.Left()) &&
           std::isfinite(grid.Right()) && std::isfinite(y);
}

}  // namespace

ChartKind ChartKindOf(int standardCode) {
    return standardCode == kCumulativeStandard ? ChartKind::cumulative : ChartKind::result;
}

GridSize GridSizeOf(const GrainSizeRecord& record, ChartKind kind) {
    if (kind == ChartKind::cumulative) {
        return kCumulativeGrid;
    }
    return record.sizes.size() > kCompactTableColumns ? kGridAboveLongTable : kResultGrid;
}

CurveGrid GridOf(const GrainSizeRecord& record, ChartKind kind, const AcGePoint3d& origin) {
    const GridSize size = GridSizeOf(record, kind);
    return CurveGrid::For(origin, size.width, size.height, record.LargestSize());
}

bool ComputePassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    if (record.kind == RecordKind::sample) {
        return ComputeSamplePassing(record, passing);
    }
    ComputeLayerPassing(record, passing);
    return true;
}

AcGePoint3dArray CurvePoints(const GrainSizeRecord& record, const std::vector<double>& passing,
                             const CurveGrid& grid) {
    AcGePoint3dArray points;
    points.setPhysicalLength(static_cast<int>(record.sizes.size()));
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] != 0.0) {
            points.append({grid.XOfSize(record.sizes[i]), grid.YOfPassing(passing[i]), 0.0});
        }
    }
    return points;
}

AcGeCubicSplineCurve3d CurveThrough(const AcGePoint3dArray& points) {
    return AcGeCubicSplineCurve3d({points.begin(), points.end()});
}

const DiameterLevel* ReadDiameters(const AcGeCubicSplineCurve3d& curve, const CurveGrid& grid,
                                   std::vector<double>& diameters) {
    diameters.clear();
    if (!curve.isValid()) {
        diameters.assign(kDiameterCount, kLevelNotReached);
        return nullptr;
    }
    std::vector<AcGePoint3d> crossings;
    for (const DiameterLevel& level : kDiameterLevels) {
        const double y = grid.YOfLevel(level);
        if (!CanBeRead(curve, grid, y)) {
            return &level;
        }
        crossings.clear();
        curve.intersectWith({grid.Left(), y, 0.0}, {grid.Right(), y, 0.0}, crossings);
        diameters.push_back(crossings.empty()
                                ? kLevelNotReached
                                : RoundAsPrinted(grid.SizeOfX(crossings.front().x), 3));
    }
    return nullptr;
}

AcGePoint3dArray FitPoints(const AcGePoint3dArray& measured, const CurveGrid& grid,
                           CurveForm form) {
    return form == CurveForm::guarded ? GuardedPoints(measured, grid) : measured;
}

std::optional<CurveShape> ShapeOf(const GrainSizeRecord& record, ChartKind kind, CurveForm form,
                                  const AcGePoint3d& origin) {
    std::vector<double> passing;
    if (!ComputePassing(record, passing)) {
        return std::nullopt;
    }
    CurveShape shape;
    shape.grid = GridOf(record, kind, origin);
    shape.measured = CurvePoints(record, passing, shape.grid);
    shape.points = FitPoints(shape.measured, shape.grid, form);
    shape.curve = CurveThrough(shape.points);
    ReadDiameters(shape.curve, shape.grid, shape.diameters);
    return shape;
}
