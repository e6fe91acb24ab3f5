#pragma once

#include "platform/ge/AcGeVector3d.h"

/// A place in space, drawing units.
class AcGePoint3d {
public:
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    constexpr AcGePoint3d& set(double xx, double yy, double zz) {
        x = xx;
        y = yy;
        z = zz;
        return *this;
    }
    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const {
        return {x - p.x, y - p.y, z - p.z};
    }
    constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGePoint3d& transformBy(const class AcGeMatrix3d& m);
    double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
    /// Equal within AcGeContext's default tolerance.
    bool isEqualTo(const AcGePoint3d& p, double tolerance = AcGeTol::equalPoint) const {
        return distanceTo(p) <= tolerance;
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
