#pragma once

#include "src/entity/CKFCurve.h"

/// Grid of the tests: 120 × 50 with its top left corner at (100, 200), sizes from 200 mm.
inline CurveGrid TestGrid() {
    return CurveGrid::For({100, 200, 0}, 120, 50, 20);
}

/// A point of the test grid.
inline AcGePoint3d PointAt(double size, double passing) {
    const CurveGrid grid = TestGrid();
    return {grid.XOfSize(size), grid.YOfPassing(passing), 0.0};
}

inline void SetGrid(CKFCurve& curve, const CurveGrid& grid, double textHeight) {
    curve.SetGrid(grid.gridOrigin, grid.wideAxis, grid.decadeLength, grid.gridWidth,
                  grid.gridHeight, textHeight);
}

/// Fills a curve as chart layouts do: `labels` label points at (1, 0), (2, 0) and so on.
inline void SetUpCurve(CKFCurve& curve, int chartType, const AcGePoint3dArray& points,
                       int labels = 5) {
    AcGePoint3dArray labelPoints;
    for (int i = 1; i <= labels; ++i) {
        labelPoints.append({static_cast<double>(i), 0.0, 0.0});
    }
    curve.SetIdentity(static_cast<Adesk::Int16>(chartType), 7, "GC1", "ZK3", "5");
    SetGrid(curve, TestGrid(), 2.4);
    curve.SetPoints(points, labelPoints);
}

/// Straight on the logarithmic axis from 20 mm at 100 % to 0.02 mm at 0 %: d(P) is 0.02 × 10^(3 P).
inline AcGePoint3dArray StraightCurve() {
    return {PointAt(20, 1.0), PointAt(0.632455532, 0.5), PointAt(0.02, 0.0)};
}
