#include "platform/db/AcDbSpline.h"

#include <cmath>

#include "platform/db/AcDbLine.h"
#include "platform/ge/nurb_sampling.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace {

AcRxObject* makeSpline() {
    return new AcDbSpline;
}

bool isFinite(const AcGePoint3d& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbSpline, AcDbEntity, makeSpline);

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, int order, double fitTolerance)
    : degree_(order - 1),
      fitTolerance_(fitTolerance),
      fitPoints_(fitPoints.begin(), fitPoints.end()),
      curve_(fitPoints_) {}

const AcGeCubicSplineCurve3d& AcDbSpline::curve() const {
    if (!curve_.isValid() && !fitPoints_.empty()) {
        curve_ = AcGeCubicSplineCurve3d(fitPoints_);
    }
    return curve_;
}

Adesk::Boolean AcDbSpline::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    if (fitPoints_.empty() && controlPoints_.empty()) {
        return true;
    }
    const double chordError = context->deviation(
        kAcGiMaxDevForCurve, fitPoints_.empty() ? controlPoints_.front() : fitPoints_.front());
    const std::vector<AcGePoint3d> points =
        fitPoints_.empty() ? ge::SampleNurb({degree_, knots_, controlPoints_, weights_}, chordError)
                           : curve().samplePoints(chordError);
    if (!points.empty()) {
        context->geometry().polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
    }
    return true;
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& transform) {
    assertWriteEnabled();
    for (std::vector<AcGePoint3d>* const points : {&fitPoints_, &controlPoints_}) {
        for (AcGePoint3d& point : *points) {
            point.transformBy(transform);
        }
    }
    startTangent_.transformBy(transform);
    endTangent_.transformBy(transform);
    curve_ = {};
    return Acad::eOk;
}

/// Whether the curve through the fit points can be intersected.
Acad::ErrorStatus AcDbSpline::checkCurve() const {
    if (fitPoints_.empty() && !controlPoints_.empty()) {
        return Acad::eNotApplicable;
    }
    if (!curve().isValid()) {
        return Acad::eDegenerateGeometry;
    }
    return std::isfinite(curve_.endParam()) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbSpline::intersectWith(const AcDbEntity* entity, AcDb::Intersect /*type*/,
                                            AcGePoint3dArray& points, int /*thisMarker*/,
                                            int /*otherMarker*/) const {
    if (entity == nullptr) {
        return Acad::eNullObjectPtr;
    }
    if (!entity->isKindOf(AcDbLine::desc())) {
        return Acad::eNotApplicable;
    }
    if (const Acad::ErrorStatus status = checkCurve(); status != Acad::eOk) {
        return status;
    }
    const auto* const line = static_cast<const AcDbLine*>(entity);
    const AcGePoint3d start = line->startPoint();
    const AcGePoint3d end = line->endPoint();
    if (!isFinite(start) || !isFinite(end)) {
        return Acad::eInvalidInput;
    }
    curve_.intersectWith(start, end, points.asVector());
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbSpline::clone() const {
    return std::make_unique<AcDbSpline>(*this);
}
