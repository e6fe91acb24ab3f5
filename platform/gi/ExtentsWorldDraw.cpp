#include "platform/gi/ExtentsWorldDraw.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/gi/shape_outline.h"

Adesk::Boolean ExtentsWorldDraw::regenAbort() const {
    stepsLeft_ -= stepsLeft_ > 0 ? 1 : 0;
    return stepsLeft_ == 0;
}

void ExtentsWorldDraw::Geometry::add(const AcGePoint3d& p) {
    low.set(std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z));
    high.set(std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z));
}

Adesk::Boolean ExtentsWorldDraw::Geometry::polyline(Adesk::UInt32 nbPoints,
                                                    const AcGePoint3d* points) {
    std::for_each(points, points + nbPoints, [this](const AcGePoint3d& p) { add(p); });
    return true;
}

Adesk::Boolean ExtentsWorldDraw::Geometry::polygon(Adesk::UInt32 nbPoints,
                                                   const AcGePoint3d* points) {
    return polyline(nbPoints, points);
}

Adesk::Boolean ExtentsWorldDraw::Geometry::circle(const AcGePoint3d& center, double radius,
                                                  const AcGeVector3d& normal) {
    const AcGeVector3d n = normal.normal();
    const auto reach = [radius](double along) {
        return radius * std::sqrt(std::max(0.0, 1.0 - along * along));
    };
    const AcGeVector3d half(reach(n.x), reach(n.y), reach(n.z));
    add(center - half);
    add(center + half);
    return true;
}

Adesk::Boolean ExtentsWorldDraw::Geometry::circularArc(const AcGePoint3d& center, double radius,
                                                       double startAngle, double sweepAngle) {
    const auto addAt = [&](double angle) {
        add(center + AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * radius);
    };
    const double from = std::min(startAngle, startAngle + sweepAngle);
    const double to = std::max(startAngle, startAngle + sweepAngle);
    addAt(from);
    addAt(to);
    constexpr double kQuarter = std::numbers::pi / 2.0;
    const double first = std::ceil(from / kQuarter);
    for (int i = 0; i < 4 && (first + i) * kQuarter < to; ++i) {
        addAt((first + i) * kQuarter);
    }
    return true;
}

Adesk::Boolean ExtentsWorldDraw::Geometry::wideLine(const AcGePoint3d& start,
                                                    const AcGePoint3d& end, double startWidth,
                                                    double endWidth) {
    const auto corners = gi::WideLineCorners(start, end, startWidth, endWidth);
    return polyline(corners.size(), corners.data());
}

Adesk::Boolean ExtentsWorldDraw::Geometry::text(const AcGePoint3d& position,
                                                const AcGeVector3d& normal,
                                                const AcGeVector3d& direction, const char* message,
                                                Adesk::Int32 length, Adesk::Boolean /*raw*/,
                                                const AcGiTextStyle& style) {
    const std::string_view drawn = gi::TextPart(message, length);
    if (drawn.empty()) {
        return true;
    }
    const auto corners = gi::TextCorners(position, normal, direction, drawn, style);
    return polyline(corners.size(), corners.data());
}
