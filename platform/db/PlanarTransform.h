#pragma once

#include <optional>

#include "platform/ge/AcGeMatrix3d.h"
#include "platform/ge/AcGePoint3d.h"

/// What a map does to an entity that lives in a plane (circle, text, polyline, hatch, block
/// reference): the plane's image, and the map between the coordinates of the two planes.
class PlanarTransform {
public:
    /// Nothing when circles of the plane do not stay circles, or shrink to a point.
    static std::optional<PlanarTransform> of(const AcGeMatrix3d& transform,
                                             const AcGeVector3d& normal);

    /// Normal of the image plane. A mirror whose axis lies in the plane keeps the normal.
    const AcGeVector3d& normal() const { return normal_; }
    double scale() const { return scale_; }
    bool isMirrored() const { return mirrored_; }
    AcGePoint3d map(AcGePoint3d point) const { return point.transformBy(local_); }
    AcGePoint2d map(const AcGePoint2d& point, double elevation) const {
        const AcGePoint3d image = map(AcGePoint3d(point.x, point.y, elevation));
        return {image.x, image.y};
    }
    /// Direction in the image plane of a direction in the plane; radians, counter-clockwise.
    double mapAngle(double angle) const { return turn_ + (mirrored_ ? -angle : angle); }

private:
    PlanarTransform() = default;

    AcGeVector3d normal_;
    AcGeMatrix3d local_;
    double scale_ = 1.0;
    double turn_ = 0.0;
    bool mirrored_ = false;
};
