#include "platform/gi/TransformingWorldDraw.h"

#include <cmath>

#include "platform/gi/shape_outline.h"

namespace {

/// True when two directions are perpendicular and of one length, so that a circle stays one.
bool areEvenAxes(const AcGeVector3d& x, const AcGeVector3d& y) {
    constexpr double kEven = 1e-9;
    const double size = x.length() + y.length();
    return std::abs(x.length() - y.length()) <= kEven * size &&
           std::abs(x.dotProduct(y)) <= kEven * size * size;
}

Adesk::UInt32 countOf(const std::vector<AcGePoint3d>& points) {
    return static_cast<Adesk::UInt32>(points.size());
}

}  // namespace

TransformingWorldDraw::Geometry::Geometry(AcGiWorldDraw& end, const AcGeMatrix3d& transform)
    : end_(end), target_(end.geometry()), transform_(transform) {
    const AcGeVector3d x = map(AcGeVector3d::kXAxis);
    const AcGeVector3d y = map(AcGeVector3d::kYAxis);
    keepsLevelCircles_ = x.z == 0.0 && y.z == 0.0 && areEvenAxes(x, y);
    scale_ = x.length();
    turn_ = std::atan2(x.y, x.x);
    mirrored_ = x.crossProduct(y).z < 0.0;
}

bool TransformingWorldDraw::Geometry::mayDraw(std::size_t length) const {
    constexpr std::size_t kLengthOfStep = 64;
    return gi::MayTakeSteps(end_, length / kLengthOfStep);
}

const std::vector<AcGePoint3d>& TransformingWorldDraw::Geometry::mapped(Adesk::UInt32 nbPoints,
                                                                        const AcGePoint3d* points) {
    mapped_.assign(points, points + nbPoints);
    for (AcGePoint3d& point : mapped_) {
        point.transformBy(transform_);
    }
    return mapped_;
}

Adesk::Boolean TransformingWorldDraw::Geometry::polyline(Adesk::UInt32 nbPoints,
                                                         const AcGePoint3d* points) {
    return !mayDraw(nbPoints) || target_.polyline(nbPoints, mapped(nbPoints, points).data());
}

Adesk::Boolean TransformingWorldDraw::Geometry::polygon(Adesk::UInt32 nbPoints,
                                                        const AcGePoint3d* points) {
    return !mayDraw(nbPoints) || target_.polygon(nbPoints, mapped(nbPoints, points).data());
}

Adesk::Boolean TransformingWorldDraw::Geometry::circle(const AcGePoint3d& center, double radius,
                                                       const AcGeVector3d& normal) {
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
    const AcGeVector3d x = map(AcGeVector3d(AcGeVector3d::kXAxis).transformBy(plane));
    const AcGeVector3d y = map(AcGeVector3d(AcGeVector3d::kYAxis).transformBy(plane));
    if (areEvenAxes(x, y)) {
        const AcGeVector3d mappedNormal = x.crossProduct(y).normal();
        return target_.circle(map(center), radius * x.length(),
                              mirrored_ ? -mappedNormal : mappedNormal);
    }
    const std::vector<AcGePoint3d> points = gi::CirclePoints(center, radius, normal);
    return polyline(countOf(points), points.data());
}

Adesk::Boolean TransformingWorldDraw::Geometry::circularArc(const AcGePoint3d& center,
                                                            double radius, double startAngle,
                                                            double sweepAngle) {
    if (keepsLevelCircles_) {
        const double start = mirrored_ ? turn_ - startAngle - sweepAngle : turn_ + startAngle;
        return target_.circularArc(map(center), radius * scale_, start, sweepAngle);
    }
    const std::vector<AcGePoint3d> points = gi::ArcPoints(center, radius, startAngle, sweepAngle);
    return polyline(countOf(points), points.data());
}

Adesk::Boolean TransformingWorldDraw::Geometry::wideLine(const AcGePoint3d& start,
                                                         const AcGePoint3d& end, double startWidth,
                                                         double endWidth) {
    if (keepsLevelCircles_) {
        return target_.wideLine(map(start), map(end), startWidth * scale_, endWidth * scale_);
    }
    const auto corners = gi::WideLineCorners(start, end, startWidth, endWidth);
    return polygon(corners.size(), corners.data());
}

Adesk::Boolean TransformingWorldDraw::Geometry::text(
    const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
    const char* message, Adesk::Int32 length, Adesk::Boolean raw, const AcGiTextStyle& style) {
    const AcGeVector3d along = direction.normal();
    const AcGeVector3d stroke =
        normal.crossProduct(along).normal() + along * std::tan(style.obliquingAngle());
    const AcGeVector3d mappedAlong = map(along);
    const AcGeVector3d mappedStroke = map(stroke);
    const AcGeVector3d mappedNormal = mappedAlong.crossProduct(mappedStroke).normal();
    const double widening = mappedAlong.length();
    const double height = mappedNormal.crossProduct(mappedAlong.normal()).dotProduct(mappedStroke);
    if (!(widening > 0.0 && height > 0.0) || !mayDraw(gi::TextPart(message, length).size())) {
        return true;  // flattened to a line: nothing to read
    }
    AcGiTextStyle mappedStyle = style;
    mappedStyle.setTextSize(style.textSize() * height);
    mappedStyle.setXScale(style.xScale() * widening / height);
    mappedStyle.setObliquingAngle(
        std::atan2(mappedStroke.dotProduct(mappedAlong.normal()), height));
    return target_.text(map(position), mappedNormal, mappedAlong.normal(), message, length, raw,
                        mappedStyle);
}
