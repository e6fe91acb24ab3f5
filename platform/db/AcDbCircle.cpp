#include "platform/db/AcDbCircle.h"

#include "platform/db/PlanarTransform.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace {
AcRxObject* makeCircle() {
    return new AcDbCircle;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbCircle, AcDbEntity, makeCircle);

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : center_(center), radius_(radius), normal_(normal) {
    center_.transformBy(AcGeMatrix3d::worldToPlane(normal));
}

AcGePoint3d AcDbCircle::center() const {
    AcGePoint3d inWorld = center_;
    return inWorld.transformBy(AcGeMatrix3d::planeToWorld(normal_));
}

Adesk::Boolean AcDbCircle::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    context->geometry().circle(center(), radius_, normal_);
    return true;
}

Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& transform) {
    const auto planar = PlanarTransform::of(transform, normal_);
    if (!planar) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    center_ = planar->map(center_);
    radius_ *= planar->scale();
    thickness_ *= planar->scale();
    normal_ = planar->normal();
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbCircle::clone() const {
    return std::make_unique<AcDbCircle>(*this);
}
