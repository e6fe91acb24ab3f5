#include "platform/gi/shape_outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/ge/AcGeMatrix3d.h"
#include "platform/win32/code_page.h"

namespace gi {

namespace {
constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr int kChordsOfTurn = 72;
}  // namespace

std::array<AcGePoint3d, 4> WideLineCorners(const AcGePoint3d& start, const AcGePoint3d& end,
                                           double startWidth, double endWidth) {
    const AcGeVector3d along = (end - start).normal();
    const AcGeVector3d across = AcGeVector3d(-along.y, along.x, 0.0) * 0.5;
    return {start + across * startWidth, start - across * startWidth, end - across * endWidth,
            end + across * endWidth};
}

std::string_view TextPart(const char* message, int length) {
    const std::string_view whole = message != nullptr ? message : "";
    return length < 0 ? whole : whole.substr(0, static_cast<std::size_t>(length));
}

std::array<AcGePoint3d, 4> TextCorners(const AcGePoint3d& position, const AcGeVector3d& normal,
                                       const AcGeVector3d& direction, std::string_view gbk,
                                       const AcGiTextStyle& style) {
    const AcGeVector3d along =
        direction.normal() * (win32::CharacterCount(gbk) * style.textSize() * style.xScale());
    const AcGeVector3d up = normal.crossProduct(direction).normal() * style.textSize();
    return {position, position + along, position + along + up, position + up};
}

std::vector<AcGePoint3d> ArcPoints(const AcGePoint3d& center, double radius, double startAngle,
                                   double sweepAngle) {
    const double turns = std::abs(sweepAngle) / kTurn;
    const int chords = turns < 1.0 ? std::max(1, static_cast<int>(std::ceil(turns * kChordsOfTurn)))
                                   : kChordsOfTurn;
    std::vector<AcGePoint3d> points;
    points.reserve(static_cast<std::size_t>(chords) + 1);
    for (int i = 0; i <= chords; ++i) {
        const double angle = startAngle + sweepAngle * i / chords;
        points.push_back(center + AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * radius);
    }
    return points;
}

std::vector<AcGePoint3d> CirclePoints(const AcGePoint3d& center, double radius,
                                      const AcGeVector3d& normal) {
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
    std::vector<AcGePoint3d> points = ArcPoints({}, radius, 0.0, kTurn);
    for (AcGePoint3d& point : points) {
        point.transformBy(plane);
        point += center - AcGePoint3d();
    }
    return points;
}

}  // namespace gi
