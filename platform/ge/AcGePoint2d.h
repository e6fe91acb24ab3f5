#pragma once

/// A place in a plane, drawing units.
class AcGePoint2d {
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    double x = 0.0;
    double y = 0.0;
};
