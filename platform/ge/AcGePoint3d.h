#pragma once

#include <cmath>

#include "platform/ge/AcArray.h"

/// The default tolerances of geometric comparisons.
struct AcGeTol {
    static constexpr double equalPoint = 1e-10;
    static constexpr double equalVector = 1e-10;
};

/// A direction with length, drawing units.
class AcGeVector3d {
public:
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    /// The vector of length 1 in this direction; a null vector stays one.
    AcGeVector3d normal() const {
        const double own = length();
        return own > 0.0 ? *this * (1.0 / own) : *this;
    }
    double length() const { return std::sqrt(x * x + y * y + z * z); }
    AcGeVector3d& transformBy(const class AcGeMatrix3d& m);
    /// Equal when the difference is no longer than the tolerance.
    bool isEqualTo(const AcGeVector3d& v, double tolerance = AcGeTol::equalVector) const {
        return (*this - v).length() <= tolerance;
    }

    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline constexpr AcGeVector3d AcGeVector3d::kXAxis{1, 0, 0};
inline constexpr AcGeVector3d AcGeVector3d::kYAxis{0, 1, 0};
inline constexpr AcGeVector3d AcGeVector3d::kZAxis{0, 0, 1};

/// Scale factors of a block reference.
struct AcGeScale3d {
    constexpr AcGeScale3d() = default;
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};

/// A place in a plane, drawing units.
class AcGePoint2d {
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    double x = 0.0;
    double y = 0.0;
};

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

using AcGePoint3dArray = AcArray<AcGePoint3d>;
