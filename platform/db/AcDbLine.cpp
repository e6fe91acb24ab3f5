#include "platform/db/AcDbLine.h"

#include "platform/db/AcDbSpline.h"
#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace {
AcRxObject* makeLine() {
    return new AcDbLine;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbLine, AcDbEntity, makeLine);

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
    assertWriteEnabled();
    start_ = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
    assertWriteEnabled();
    end_ = point;
    return Acad::eOk;
}

Adesk::Boolean AcDbLine::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    const AcGePoint3d ends[] = {start_, end_};
    context->geometry().polyline(2, ends);
    return true;
}

Acad::ErrorStatus AcDbLine::getGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    extents = AcDbExtents();
    extents.addPoint(start_);
    extents.addPoint(end_);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& transform) {
    assertWriteEnabled();
    start_.transformBy(transform);
    end_.transformBy(transform);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::intersectWith(const AcDbEntity* entity, AcDb::Intersect type,
                                          AcGePoint3dArray& points, int thisMarker,
                                          int otherMarker) const {
    if (entity == nullptr) {
        return Acad::eNullObjectPtr;
    }
    if (entity->isKindOf(AcDbSpline::desc())) {
        return entity->intersectWith(this, type, points, otherMarker, thisMarker);
    }
    if (!entity->isKindOf(AcDbLine::desc())) {
        return Acad::eNotApplicable;
    }
    const auto* const other = static_cast<const AcDbLine*>(entity);
    const AcGePoint3d ends[] = {start_, end_};
    AcGeCubicSplineCurve3d(ends).intersectWith(other->start_, other->end_, points.asVector());
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbLine::clone() const {
    return std::make_unique<AcDbLine>(*this);
}
