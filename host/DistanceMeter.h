#pragma once

#include <cstddef>
#include <limits>

#include "platform/db/AcDbEntity.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace host {

/// A drawing context that measures how far what is seen of entities is from a point, from above.
/// Within a filled area, and within the box around a text, the distance is 0. It stops when blocks
/// in blocks make more of the entities than anybody draws.
class DistanceMeter : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    explicit DistanceMeter(const AcGePoint3d& point) : point_(point.x, point.y, 0.0) {}

    /// The distance of an entity; infinite when nothing of it is seen.
    double Measure(AcDbEntity& entity);

    /// True when it has stopped: it measures nothing more.
    Adesk::Boolean regenAbort() const override { return stepsLeft_ == 0 || --stepsLeft_ == 0; }
    AcGiWorldGeometry& geometry() const override { return const_cast<DistanceMeter&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override {
        return const_cast<DistanceMeter&>(*this);
    }

private:
    static constexpr std::size_t kMostSteps = 2'000'000;

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
    void setLayer(const AcDbObjectId& layer) override;
    void setSelectionMarker(Adesk::Int32 /*marker*/) override {}

    Adesk::Boolean Note(double distance);
    double ToSegment(const AcGePoint3d& start, const AcGePoint3d& end) const;

    AcGePoint3d point_;
    mutable std::size_t stepsLeft_ = kMostSteps;
    bool isSeen_ = true;
    double distance_ = std::numeric_limits<double>::infinity();
};

}  // namespace host
