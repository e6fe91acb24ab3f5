#include "platform/db/ExtentsMeter.h"

#include <cmath>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/entity_drawing.h"

bool db::IsSomewhere(const AcGePoint3d& p) {
    constexpr double kNowhere = 1e19;
    return std::abs(p.x) < kNowhere && std::abs(p.y) < kNowhere && std::abs(p.z) < kNowhere;
}

bool ExtentsMeter::add(const AcDbEntity& entity, AcDbExtents& box) {
    // Dots are half of what a chart has to measure, and lie within its frame.
    if (entity.isA() == AcDbHatch::desc() &&
        static_cast<const AcDbHatch&>(entity).isOfCirclesWithin(box)) {
        return true;
    }
    AcDbExtents own;
    bool isTold = false;
    bool isWhole = true;
    const bool isKept = entity.isA() == AcDbKeptEntity::desc();
    if (isKept || entity.isA() == AcDbBlockReference::desc()) {
        ExtentsWorldDraw measured(stepsLeft_);
        const_cast<AcDbEntity&>(entity).worldDraw(&measured);  // changes nothing that counts
        stepsLeft_ = measured.stepsLeft();
        isWhole = stepsLeft_ > 0;
        isTold = db::BoxOf(measured, own) == Acad::eOk;
    } else {
        isTold = entity.getGeomExtents(own) == Acad::eOk;
    }
    if (isTold && db::IsSomewhere(own.minPoint()) && db::IsSomewhere(own.maxPoint())) {
        box.addExt(own);
    }
    return isWhole && (isTold || !isKept);
}
