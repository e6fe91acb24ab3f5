#pragma once

#include <cstddef>
#include <limits>

#include "platform/gi/AcGiWorldDraw.h"

/// A drawing context that only measures: the box around what is drawn into it. Texts count with
/// text size × width factor a character. It stops what takes more steps than it is given.
class ExtentsWorldDraw : public AcGiWorldDraw {
public:
    static constexpr std::size_t kMostSteps = 2'000'000;

    explicit ExtentsWorldDraw(std::size_t mostSteps = kMostSteps) : stepsLeft_(mostSteps) {}

    Adesk::Boolean regenAbort() const override;
    /// How many more steps it would measure; 0 when the box may be that of a part.
    std::size_t stepsLeft() const { return stepsLeft_; }
    AcGiWorldGeometry& geometry() const override { return geometry_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }

    bool isEmpty() const { return geometry_.low.x > geometry_.high.x; }
    /// The box's corners; of no meaning while it is empty.
    const AcGePoint3d& minPoint() const { return geometry_.low; }
    const AcGePoint3d& maxPoint() const { return geometry_.high; }

private:
    class Geometry : public AcGiWorldGeometry {
    public:
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

        static constexpr double kFar = std::numeric_limits<double>::infinity();
        AcGePoint3d low{kFar, kFar, kFar};
        AcGePoint3d high{-kFar, -kFar, -kFar};

    private:
        void add(const AcGePoint3d& point);
    };
    class Traits : public AcGiSubEntityTraits {
    public:
        void setColor(Adesk::UInt16) override {}
        void setSelectionMarker(Adesk::Int32) override {}
    };

    mutable std::size_t stepsLeft_;
    mutable Geometry geometry_;
    mutable Traits traits_;
};
