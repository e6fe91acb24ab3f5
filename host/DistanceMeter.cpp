#include "host/DistanceMeter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <string_view>

#include "host/model_space.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/win32/code_page.h"

namespace host {

namespace {
AcGePoint3d Flat(const AcGePoint3d& point) {
    return {point.x, point.y, 0.0};
}

/// By the number of times that a ray to the right crosses the outline.
bool Contains(Adesk::UInt32 count, const AcGePoint3d* corners, const AcGePoint3d& point) {
    bool inside = false;
    for (Adesk::UInt32 i = 0, before = count - 1; i < count; before = i++) {
        const AcGePoint3d& a = corners[i];
        const AcGePoint3d& b = corners[before];
        const bool crossesHeight = (a.y > point.y) != (b.y > point.y);
        inside = inside !=
                 (crossesHeight && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x);
    }
    return inside;
}

std::size_t CharacterCount(std::string_view gbk) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < gbk.size(); i += win32::CharLength(gbk, i)) {
        ++count;
    }
    return count;
}
}  // namespace

double DistanceMeter::Measure(AcDbEntity& entity) {
    distance_ = std::numeric_limits<double>::infinity();
    if (IsThere(entity)) {
        entity.setTraits(*this);
        entity.worldDraw(this);
    }
    return distance_;
}

void DistanceMeter::setLayer(const AcDbObjectId& id) {
    isSeen_ = true;
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, id, AcDb::kForRead) == Acad::eOk) {
        isSeen_ = !layer->isOff();
        layer->close();
    }
}

Adesk::Boolean DistanceMeter::Note(double distance) {
    if (isSeen_) {
        distance_ = std::min(distance_, distance);
    }
    return true;
}

double DistanceMeter::ToSegment(const AcGePoint3d& start, const AcGePoint3d& end) const {
    const AcGeVector3d along = Flat(end) - Flat(start);
    const double squared = along.dotProduct(along);
    const double part =
        squared > 0.0 ? std::clamp((point_ - Flat(start)).dotProduct(along) / squared, 0.0, 1.0)
                      : 0.0;
    return point_.distanceTo(Flat(start) + along * part);
}

Adesk::Boolean DistanceMeter::polyline(Adesk::UInt32 nbPoints, const AcGePoint3d* points) {
    for (Adesk::UInt32 i = 0; i < nbPoints; ++i) {
        Note(ToSegment(points[i], points[i + 1 < nbPoints ? i + 1 : i]));
    }
    return true;
}

Adesk::Boolean DistanceMeter::polygon(Adesk::UInt32 nbPoints, const AcGePoint3d* points) {
    if (nbPoints > 0 && Contains(nbPoints, points, point_)) {
        return Note(0.0);
    }
    for (Adesk::UInt32 i = 0; i < nbPoints; ++i) {
        Note(ToSegment(points[i], points[(i + 1) % nbPoints]));
    }
    return true;
}

Adesk::Boolean DistanceMeter::circle(const AcGePoint3d& center, double radius,
                                     const AcGeVector3d& /*normal*/) {
    return Note(std::abs(point_.distanceTo(Flat(center)) - radius));
}

Adesk::Boolean DistanceMeter::circularArc(const AcGePoint3d& center, double radius,
                                          double startAngle, double sweepAngle) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const AcGeVector3d out = point_ - Flat(center);
    const double fromStart = std::atan2(out.y, out.x) - startAngle;
    if (fromStart - std::floor(fromStart / kTurn) * kTurn <= sweepAngle) {
        return Note(std::abs(out.length() - radius));
    }
    for (const double angle : {startAngle, startAngle + sweepAngle}) {
        Note(point_.distanceTo(
            Flat(center) + AcGeVector3d(radius * std::cos(angle), radius * std::sin(angle), 0.0)));
    }
    return true;
}

Adesk::Boolean DistanceMeter::wideLine(const AcGePoint3d& start, const AcGePoint3d& end,
                                       double startWidth, double endWidth) {
    return Note(std::max(0.0, ToSegment(start, end) - std::max(startWidth, endWidth) / 2.0));
}

Adesk::Boolean DistanceMeter::text(const AcGePoint3d& position, const AcGeVector3d& /*normal*/,
                                   const AcGeVector3d& direction, const char* message,
                                   Adesk::Int32 length, Adesk::Boolean /*raw*/,
                                   const AcGiTextStyle& style) {
    const std::size_t bytes = length < 0 ? std::strlen(message) : static_cast<std::size_t>(length);
    const std::size_t characters = CharacterCount({message, bytes});
    if (characters == 0) {
        return true;
    }
    const AcGeVector3d right =
        direction.normal() * (static_cast<double>(characters) * style.textSize() * style.xScale());
    const AcGeVector3d up =
        AcGeVector3d(-direction.y, direction.x, 0.0).normal() * style.textSize();
    const AcGePoint3d corners[] = {position, position + right, position + right + up,
                                   position + up};
    return polygon(4, corners);
}

}  // namespace host
