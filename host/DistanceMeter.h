#pragma once

#include <limits>

#include "platform/gi/AcGiWorldDraw.h"

namespace host {

/// A drawing context that measures how far what is drawn is from a point, seen from above. Within a
/// filled area, and within the box around a text, the distance is 0.
class DistanceMeter : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    explicit DistanceMeter(const AcGePoint3d& point) : point_(point.x, point.y, 0.0) {}

    /// Infinite while nothing was drawn.
    double Distance() const { return distance_; }

    AcGiWorldGeometry& geometry() const override { return const_cast<DistanceMeter&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override {
        return const_cast<DistanceMeter&>(*this);
    }

private:
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
    void setColor(Adesk::UInt16 /*colorIndex*/) override {}
    void setSelectionMarker(Adesk::Int32 /*marker*/) override {}

    Adesk::Boolean Note(double distance);
    double ToSegment(const AcGePoint3d& start, const AcGePoint3d& end) const;

    AcGePoint3d point_;
    double distance_ = std::numeric_limits<double>::infinity();
};

}  // namespace host
