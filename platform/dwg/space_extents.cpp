#include "platform/dwg/space_extents.h"

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/ExtentsMeter.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"

AcDbExtents ModelSpaceExtents(const AcDbDatabase& database, const AcDbExtents& ofModules) {
    const HeaderVariables& header = database.header();
    AcDbExtents box = ofModules;
    bool whole = true;
    ExtentsMeter meter;
    const AcDbObject* const space = AcDbDatabase::objectOf(header.BLOCK_RECORD_MODEL_SPACE);
    for (const AcDbObjectId id : static_cast<const AcDbBlockTableRecord*>(space)->entityIds()) {
        auto* const entity = static_cast<AcDbEntity*>(AcDbDatabase::objectOf(id));
        if (entity == nullptr || id.isErased() || entity->visibility() == AcDb::kInvisible) {
            continue;
        }
        if (FindCodec(*entity) != nullptr || entity->isA() == AcDbKeptEntity::desc()) {
            const DwgReadAccess access(*entity);
            whole = meter.add(*entity, box) && whole;
        }
    }
    if (!whole && header.EXTMIN.x <= header.EXTMAX.x && db::IsSomewhere(header.EXTMIN) &&
        db::IsSomewhere(header.EXTMAX)) {
        box.addPoint(header.EXTMIN);
        box.addPoint(header.EXTMAX);
    }
    return box;
}
