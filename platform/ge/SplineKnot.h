#pragma once

#include "platform/ge/AcGePoint3d.h"

/// One fit point of a cubic spline with what the curve keeps of it.
struct SplineKnot {
    AcGePoint3d point;
    AcGeVector3d secondDerivative;
    /// Bounds of y over the piece that starts here; of no meaning at the last fit point.
    double lowestY = 0.0;
    double highestY = 0.0;
};
