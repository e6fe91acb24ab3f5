#include "host/picture/PictureDraw.h"

#include <cmath>
#include <numbers>

#include "host/picture/TextDrawing.h"
#include "platform/gi/shape_outline.h"

namespace picture {

namespace {
constexpr double kTurn = 2.0 * std::numbers::pi;

Point Flat(const AcGePoint3d& point) {
    return {point.x, point.y};
}
Point Flat(const AcGeVector3d& vector) {
    return {vector.x, vector.y};
}
}  // namespace

Adesk::Boolean PictureDraw::regenAbort() const {
    constexpr std::size_t kMostStepsOfShape = 4;
    constexpr std::size_t kMostPointsOfShape = 16;
    return ++steps_ > kMostStepsOfShape * mostShapes_ || list_.shapeCount() > mostShapes_ ||
           list_.pointCount() > kMostPointsOfShape * mostShapes_;
}

void PictureDraw::startEntity(int layerColor, float lineWeight) {
    layerColor_ = color_ = layerColor;
    lineWeight_ = lineWeight;
}

void PictureDraw::setColor(Adesk::UInt16 colorIndex) {
    endWideLine();
    color_ = colorIndex >= 1 && colorIndex <= 255 ? colorIndex : layerColor_;
}

const std::vector<Point>& PictureDraw::flat(Adesk::UInt32 count, const AcGePoint3d* points) {
    flat_.clear();
    for (Adesk::UInt32 i = 0; i < count; ++i) {
        flat_.push_back(Flat(points[i]));
    }
    return flat_;
}

Adesk::Boolean PictureDraw::polyline(Adesk::UInt32 count, const AcGePoint3d* points) {
    endWideLine();
    list_.addPolyline(flat(count, points), color_, lineWeight_);
    return true;
}

Adesk::Boolean PictureDraw::polygon(Adesk::UInt32 count, const AcGePoint3d* points) {
    endWideLine();
    list_.addFill(flat(count, points), color_);
    return true;
}

Adesk::Boolean PictureDraw::circle(const AcGePoint3d& center, double radius,
                                   const AcGeVector3d& normal) {
    endWideLine();
    if (normal.x == 0.0 && normal.y == 0.0) {
        list_.addArc({Flat(center), radius, 0.0, kTurn}, color_, lineWeight_);
        return true;
    }
    const std::vector<AcGePoint3d> points = gi::CirclePoints(center, radius, normal);
    return polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

Adesk::Boolean PictureDraw::circularArc(const AcGePoint3d& center, double radius, double startAngle,
                                        double sweepAngle) {
    endWideLine();
    list_.addArc({Flat(center), radius, startAngle, sweepAngle}, color_, lineWeight_);
    return true;
}

Adesk::Boolean PictureDraw::wideLine(const AcGePoint3d& start, const AcGePoint3d& end,
                                     double startWidth, double endWidth) {
    const WideLineRun::Segment segment{Flat(start), Flat(end), startWidth, endWidth};
    if (!wideLine_.continues(segment)) {
        endWideLine();
    }
    wideLine_.add(segment);
    return true;
}

void PictureDraw::endWideLine() {
    if (!wideLine_.isEmpty()) {
        list_.addFill(wideLine_.take(), color_);
    }
}

Adesk::Boolean PictureDraw::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                 const AcGeVector3d& direction, const char* message,
                                 Adesk::Int32 length, Adesk::Boolean raw,
                                 const AcGiTextStyle& style) {
    endWideLine();
    const AcGeVector3d along = direction.normal();
    const AcGeVector3d stem =
        normal.crossProduct(along).normal() + along * std::tan(style.obliquingAngle());
    const Affine frame{Flat(position), Flat(along * (style.textSize() * style.xScale())),
                       Flat(stem * style.textSize())};
    TextDrawing(list_, fonts_, style, frame, color_, lineWeight_)
        .draw(CharactersOf(gi::TextPart(message, length), raw));
    return true;
}

}  // namespace picture
