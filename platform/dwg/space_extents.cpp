#include "platform/dwg/space_extents.h"

#include <cmath>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/entity_drawing.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"

namespace {

// Programs take coordinates beyond this for none.
constexpr double kNowhere = 1e19;

bool isSomewhere(const AcGePoint3d& p) {
    return std::abs(p.x) < kNowhere && std::abs(p.y) < kNowhere && std::abs(p.z) < kNowhere;
}

/// The boxes of entities, one after the other, in a time that the file's size has to do with:
/// blocks in blocks can multiply to more than anybody draws.
class Measuring {
public:
    /// Adds an entity's box; false when it cannot be told, or not wholly.
    bool add(AcDbEntity& entity, AcDbExtents& box) {
        const DwgReadAccess access(entity);
        AcDbExtents own;
        bool whole = true;
        if (measure(entity, own, whole) != Acad::eOk) {
            return whole && entity.isA() != AcDbKeptEntity::desc();
        }
        if (isSomewhere(own.minPoint()) && isSomewhere(own.maxPoint())) {
            box.addExt(own);
        }
        return whole;
    }

private:
    Acad::ErrorStatus measure(AcDbEntity& entity, AcDbExtents& box, bool& whole) {
        if (entity.isA() != AcDbBlockReference::desc() && entity.isA() != AcDbKeptEntity::desc()) {
            return entity.getGeomExtents(box);
        }
        ExtentsWorldDraw measured(stepsLeft_);
        entity.worldDraw(&measured);
        stepsLeft_ = measured.stepsLeft();
        whole = stepsLeft_ > 0;
        return db::BoxOf(measured, box);
    }

    std::size_t stepsLeft_ = ExtentsWorldDraw::kMostSteps;
};

}  // namespace

AcDbExtents ModelSpaceExtents(const AcDbDatabase& database, const AcDbExtents& ofModules) {
    const HeaderVariables& header = database.header();
    AcDbExtents box = ofModules;
    bool whole = true;
    Measuring measuring;
    const AcDbObject* const space = AcDbDatabase::objectOf(header.BLOCK_RECORD_MODEL_SPACE);
    for (const AcDbObjectId id : static_cast<const AcDbBlockTableRecord*>(space)->entityIds()) {
        auto* const entity = static_cast<AcDbEntity*>(AcDbDatabase::objectOf(id));
        if (entity == nullptr || id.isErased() || entity->visibility() == AcDb::kInvisible) {
            continue;
        }
        if (FindCodec(*entity) != nullptr || entity->isA() == AcDbKeptEntity::desc()) {
            whole = measuring.add(*entity, box) && whole;
        }
    }
    if (!whole && header.EXTMIN.x <= header.EXTMAX.x && isSomewhere(header.EXTMIN) &&
        isSomewhere(header.EXTMAX)) {
        box.addPoint(header.EXTMIN);
        box.addPoint(header.EXTMAX);
    }
    return box;
}
