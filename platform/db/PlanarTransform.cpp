#include "platform/db/PlanarTransform.h"

#include <cmath>

std::optional<PlanarTransform> PlanarTransform::of(const AcGeMatrix3d& transform,
                                                   const AcGeVector3d& normal) {
    constexpr double kEven = 1e-9;
    const AcGeMatrix3d fromPlane = transform * AcGeMatrix3d::planeToWorld(normal);
    const AcGeVector3d x = AcGeVector3d(AcGeVector3d::kXAxis).transformBy(fromPlane);
    const AcGeVector3d y = AcGeVector3d(AcGeVector3d::kYAxis).transformBy(fromPlane);
    const AcGeVector3d z = AcGeVector3d(AcGeVector3d::kZAxis).transformBy(fromPlane);
    const double size = x.length() + y.length();
    const bool even = std::abs(x.length() - y.length()) <= kEven * size &&
                      std::abs(x.dotProduct(y)) <= kEven * size * size;
    if (!even || !(size > 0.0)) {
        return std::nullopt;
    }
    PlanarTransform result;
    result.normal_ = x.crossProduct(y).normal();
    result.mirrored_ = result.normal_.dotProduct(z) < 0.0;
    if (result.mirrored_) {
        result.normal_ = -result.normal_;
    }
    result.local_ = AcGeMatrix3d::worldToPlane(result.normal_) * fromPlane;
    result.scale_ = x.length();
    result.turn_ = std::atan2(result.local_(1, 0), result.local_(0, 0));
    return result;
}
