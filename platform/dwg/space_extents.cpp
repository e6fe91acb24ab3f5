#include "platform/dwg/space_extents.h"

#include <cmath>

#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"

namespace {

// Programs take coordinates beyond this for none.
constexpr double kNowhere = 1e19;

bool isSomewhere(const AcGePoint3d& p) {
    return std::abs(p.x) < kNowhere && std::abs(p.y) < kNowhere && std::abs(p.z) < kNowhere;
}

/// Adds an entity's box; false when it cannot tell it.
bool addEntity(AcDbEntity& entity, AcDbExtents& box) {
    const DwgReadAccess access(entity);
    AcDbExtents own;
    if (entity.getGeomExtents(own) != Acad::eOk) {
        return entity.isA() != AcDbKeptEntity::desc();
    }
    if (isSomewhere(own.minPoint()) && isSomewhere(own.maxPoint())) {
        box.addExt(own);
    }
    return true;
}

}  // namespace

AcDbExtents ModelSpaceExtents(const AcDbDatabase& database, const AcDbExtents& ofModules) {
    const HeaderVariables& header = database.header();
    AcDbExtents box = ofModules;
    bool whole = true;
    const AcDbObject* const space = AcDbDatabase::objectOf(header.BLOCK_RECORD_MODEL_SPACE);
    for (const AcDbObjectId id : static_cast<const AcDbBlockTableRecord*>(space)->entityIds()) {
        auto* const entity = static_cast<AcDbEntity*>(AcDbDatabase::objectOf(id));
        if (entity == nullptr || id.isErased() || entity->visibility() == AcDb::kInvisible) {
            continue;
        }
        if (FindCodec(*entity) != nullptr || entity->isA() == AcDbKeptEntity::desc()) {
            whole = addEntity(*entity, box) && whole;
        }
    }
    if (!whole && header.EXTMIN.x <= header.EXTMAX.x && isSomewhere(header.EXTMIN) &&
        isSomewhere(header.EXTMAX)) {
        box.addPoint(header.EXTMIN);
        box.addPoint(header.EXTMAX);
    }
    return box;
}
