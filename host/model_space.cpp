#include "host/model_space.h"

#include <vector>

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

AcDbExtents ModelSpaceExtents(AcDbDatabase& database) {
    AcDbExtents all;
    ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        AcDbExtents own;
        if (entity.getGeomExtents(own) == Acad::eOk) {
            all.addExt(own);
        }
    });
    return all;
}

}  // namespace host
