#pragma once

#include "platform/ge/AcGePoint3d.h"
#include "platform/ge/CubicValues.h"

/// One fit point of a cubic spline with what the curve keeps of it.
struct SplineKnot {
    AcGePoint3d point;
    AcGeVector3d secondDerivative;
    /// Bounds of y over the piece that starts here; of no meaning at the last fit point.
    double lowestY = 0.0;
    double highestY = 0.0;
};

/// The cubic between two neighbouring knots of a spline; `length` is the distance of their
/// parameters. Refers to the knots, which must outlive it.
class SplinePiece {
public:
    SplinePiece(const SplineKnot& first, const SplineKnot& last, double length)
        : first_(first), last_(last), bend_(length * length / 6.0) {}

    const AcGePoint3d& firstPoint() const { return first_.point; }
    const AcGePoint3d& lastPoint() const { return last_.point; }
    /// The coordinate along one axis, for instance &AcGePoint3d::y with &AcGeVector3d::y.
    CubicValues coordinate(double AcGePoint3d::*of, double AcGeVector3d::*ofBend) const {
        return {first_.point.*of, last_.point.*of, bend_ * first_.secondDerivative.*ofBend,
                bend_ * last_.secondDerivative.*ofBend};
    }
    /// Distance from `origin` along a direction in the plane.
    CubicValues along(const AcGeVector3d& direction, const AcGePoint3d& origin) const {
        const auto distance = [&](const AcGePoint3d& p) {
            return direction.x * (p.x - origin.x) + direction.y * (p.y - origin.y);
        };
        const auto bend = [&](const AcGeVector3d& v) {
            return bend_ * (direction.x * v.x + direction.y * v.y);
        };
        return {distance(first_.point), distance(last_.point), bend(first_.secondDerivative),
                bend(last_.secondDerivative)};
    }
    /// The point at `u` from 0 to 1.
    AcGePoint3d at(double u) const {
        return {coordinate(&AcGePoint3d::x, &AcGeVector3d::x).at(u),
                coordinate(&AcGePoint3d::y, &AcGeVector3d::y).at(u),
                coordinate(&AcGePoint3d::z, &AcGeVector3d::z).at(u)};
    }
    /// A sixth of the greatest length of the second derivative after u.
    double greatestBend() const {
        return bend_ * std::max(first_.secondDerivative.length(), last_.secondDerivative.length());
    }

private:
    const SplineKnot& first_;
    const SplineKnot& last_;
    double bend_;
};
