#include "platform/ge/AcGeMatrix3d.h"

#include <cmath>

namespace {

/// The map with these columns.
AcGeMatrix3d FromColumns(const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z,
                         const AcGeVector3d& offset) {
    AcGeMatrix3d m;
    const AcGeVector3d* const columns[4] = {&x, &y, &z, &offset};
    for (int column = 0; column < 4; ++column) {
        m.entry[0][column] = columns[column]->x;
        m.entry[1][column] = columns[column]->y;
        m.entry[2][column] = columns[column]->z;
    }
    return m;
}

/// The linear map with the given fixed point.
AcGeMatrix3d About(const AcGeMatrix3d& linear, const AcGePoint3d& fixed) {
    const AcGeVector3d offset(fixed.x, fixed.y, fixed.z);
    return AcGeMatrix3d::translation(offset) * linear * AcGeMatrix3d::translation(-offset);
}

}  // namespace

AcGeMatrix3d::AcGeMatrix3d() : entry{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& offset) {
    return FromColumns(AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis, offset);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis,
                                    const AcGePoint3d& center) {
    const AcGeVector3d a = axis.normal();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](const AcGeVector3d& v) {
        return v * c + a.crossProduct(v) * s + a * (a.dotProduct(v) * (1.0 - c));
    };
    return About(FromColumns(turned(AcGeVector3d::kXAxis), turned(AcGeVector3d::kYAxis),
                             turned(AcGeVector3d::kZAxis), {}),
                 center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center) {
    return About(FromColumns({factor, 0, 0}, {0, factor, 0}, {0, 0, factor}, {}), center);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& first, const AcGePoint3d& second) {
    const AcGeVector3d d = AcGeVector3d(second.x - first.x, second.y - first.y, 0.0).normal();
    if (d.length() == 0.0) {
        return {};
    }
    const double cos2 = d.x * d.x - d.y * d.y;
    const double sin2 = 2.0 * d.x * d.y;
    return About(FromColumns({cos2, sin2, 0}, {sin2, -cos2, 0}, AcGeVector3d::kZAxis, {}), first);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    constexpr double kNearZAxis = 1.0 / 64.0;
    const AcGeVector3d z = normal.length() > 0.0 ? normal.normal() : AcGeVector3d::kZAxis;
    if (z.x == 0.0 && z.y == 0.0 && z.z > 0.0) {
        return {};
    }
    const bool nearZAxis = std::abs(z.x) < kNearZAxis && std::abs(z.y) < kNearZAxis;
    const AcGeVector3d& helper = nearZAxis ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis;
    const AcGeVector3d x = helper.crossProduct(z).normal();
    return FromColumns(x, z.crossProduct(x), z, {});
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal) {
    const AcGeMatrix3d m = planeToWorld(normal);
    return FromColumns({m.entry[0][0], m.entry[0][1], m.entry[0][2]},
                       {m.entry[1][0], m.entry[1][1], m.entry[1][2]},
                       {m.entry[2][0], m.entry[2][1], m.entry[2][2]}, {});
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) {
                sum += entry[row][k] * right.entry[k][column];
            }
            product.entry[row][column] = sum;
        }
    }
    return product;
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) {
    const auto& e = m.entry;
    return set(e[0][0] * x + e[0][1] * y + e[0][2] * z + e[0][3],
               e[1][0] * x + e[1][1] * y + e[1][2] * z + e[1][3],
               e[2][0] * x + e[2][1] * y + e[2][2] * z + e[2][3]);
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) {
    const auto& e = m.entry;
    return *this = {e[0][0] * x + e[0][1] * y + e[0][2] * z,
                    e[1][0] * x + e[1][1] * y + e[1][2] * z,
                    e[2][0] * x + e[2][1] * y + e[2][2] * z};
}
