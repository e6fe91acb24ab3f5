#pragma once

#include <vector>

#include "platform/ge/AcGeMatrix3d.h"
#include "platform/gi/AcGiWorldDraw.h"

/// A drawing context that draws into another one through a map: a block's definition at the place
/// of its reference, a plane that is not level. Shapes that the map distorts arrive as polylines
/// and polygons. Maps within maps are one map, so that depth costs nothing. The target must outlive
/// it.
class TransformingWorldDraw : public AcGiWorldDraw {
public:
    TransformingWorldDraw(AcGiWorldDraw& target, const AcGeMatrix3d& transform)
        : TransformingWorldDraw(target, dynamic_cast<TransformingWorldDraw*>(&target), transform) {}

    Adesk::Boolean isDragging() const override { return end_.isDragging(); }
    Adesk::Boolean regenAbort() const override { return end_.regenAbort(); }
    double deviation(AcGiDeviationType type, const AcGePoint3d& point) const override {
        return geometry_.ownDeviation(end_.deviation(type, geometry_.map(point)));
    }
    AcGiWorldGeometry& geometry() const override { return geometry_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return target_.subEntityTraits(); }
    AcGiWorldDraw& target() const { return target_; }
    /// The context behind all maps.
    AcGiWorldDraw& end() const { return end_; }

private:
    TransformingWorldDraw(AcGiWorldDraw& target, TransformingWorldDraw* outer,
                          const AcGeMatrix3d& transform)
        : target_(target),
          end_(outer != nullptr ? outer->end_ : target),
          geometry_(end_, outer != nullptr ? outer->geometry_.transform() * transform : transform) {
    }

    class Geometry : public AcGiWorldGeometry {
    public:
        Geometry(AcGiWorldDraw& end, const AcGeMatrix3d& transform);
        Adesk::Boolean polyline(Adesk::UInt32 nbPoints, const AcGePoint3d* points) override;
        Adesk::Boolean polygon(Adesk::UInt32 nbPoints, const AcGePoint3d* points) override;
        Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                              const AcGeVector3d& normal) override;
        Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double startAngle,
                                   double sweepAngle) override;
        Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end, double startWidth,
                                double endWidth) override;
        Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                            const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                            Adesk::Boolean raw, const AcGiTextStyle& style) override;

        const AcGeMatrix3d& transform() const { return transform_; }
        AcGePoint3d map(AcGePoint3d point) const { return point.transformBy(transform_); }
        /// What an error of the target's is before the map enlarges it.
        double ownDeviation(double deviation) const {
            return deviation / (scale_ > 0.0 ? scale_ : 1.0);
        }

    private:
        AcGeVector3d map(AcGeVector3d vector) const { return vector.transformBy(transform_); }
        const std::vector<AcGePoint3d>& mapped(Adesk::UInt32 nbPoints, const AcGePoint3d* points);
        /// Whether a shape of so many points or characters is to be drawn.
        bool mayDraw(std::size_t length) const;

        AcGiWorldDraw& end_;
        AcGiWorldGeometry& target_;
        AcGeMatrix3d transform_;
        bool keepsLevelCircles_ = false;  // the plane z = 0 stays level and is scaled evenly
        double scale_ = 1.0;              // of such a plane
        double turn_ = 0.0;               // direction of its x axis, radians
        bool mirrored_ = false;
        std::vector<AcGePoint3d> mapped_;
    };

    AcGiWorldDraw& target_;
    AcGiWorldDraw& end_;
    mutable Geometry geometry_;
};
