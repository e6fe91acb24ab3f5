#pragma once

#include <span>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

namespace ge {

/// A spline by control points, as drawing files have them. `weights` is empty for 1 everywhere.
struct Nurb {
    int degree = 3;
    std::span<const double> knots;  ///< ascending; control points + degree + 1 of them
    std::span<const AcGePoint3d> controlPoints;
    std::span<const double> weights;
};

/// A polyline along the curve, its chords about `maxChordError` drawing units from it at most;
/// farther where that would take more than about 200,000 points.
/// Empty when the numbers of knots, points and weights do not go together.
std::vector<AcGePoint3d> SampleNurb(const Nurb& nurb, double maxChordError);

}  // namespace ge
