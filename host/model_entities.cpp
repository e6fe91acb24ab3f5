#include "host/model_entities.h"

#include <vector>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/ExtentsMeter.h"

namespace host {

namespace {
std::vector<AcDbObjectId> ModelSpaceIds(AcDbDatabase& database) {
    AcDbBlockTable* blocks = nullptr;
    if (database.getSymbolTable(blocks, AcDb::kForRead) != Acad::eOk) {
        return {};
    }
    AcDbBlockTableRecord* modelSpace = nullptr;
    std::vector<AcDbObjectId> ids;
    if (blocks->getAt(ACDB_MODEL_SPACE, modelSpace, AcDb::kForRead) == Acad::eOk) {
        ids = modelSpace->entityIds();
        modelSpace->close();
    }
    blocks->close();
    return ids;
}
}  // namespace

void ForEachModelSpaceEntity(AcDbDatabase& database,
                             const std::function<void(AcDbEntity& entity)>& visit) {
    for (const AcDbObjectId id : ModelSpaceIds(database)) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForRead) == Acad::eOk) {
            visit(*entity);
            entity->close();
        }
    }
}

bool IsThere(const AcDbEntity& entity) {
    bool isFrozen = false;
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, entity.layerId(), AcDb::kForRead) == Acad::eOk) {
        isFrozen = layer->isFrozen();
        layer->close();
    }
    return !isFrozen && entity.visibility() == AcDb::kVisible;
}

AcDbExtents ModelSpaceExtents(AcDbDatabase& database) {
    AcDbExtents all;
    ExtentsMeter meter;
    ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        if (IsThere(entity)) {
            meter.add(entity, all);
        }
    });
    return all;
}

}  // namespace host
