#include "src/entity/append_entity.h"

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbHostApplicationServices.h"

namespace {

Acad::ErrorStatus OpenModelSpace(AcDbDatabase* drawing, AcDbBlockTableRecord*& modelSpace) {
    AcDbBlockTable* blocks = nullptr;
    Acad::ErrorStatus status = drawing->getSymbolTable(blocks, AcDb::kForRead);
    if (status != Acad::eOk) {
        return status;
    }
    status = blocks->getAt(ACDB_MODEL_SPACE, modelSpace, AcDb::kForWrite);
    blocks->close();
    return status;
}

}  // namespace

AcDbDatabase* DrawingOrWorking(AcDbDatabase* drawing) {
    return drawing != nullptr ? drawing : acdbHostApplicationServices()->workingDatabase();
}

Acad::ErrorStatus AppendToModelSpace(AcDbDatabase* drawing, AcDbEntity* entity, AcDbObjectId& id) {
    if (drawing == nullptr) {
        return Acad::eNoDatabase;
    }
    AcDbBlockTableRecord* modelSpace = nullptr;
    Acad::ErrorStatus status = OpenModelSpace(drawing, modelSpace);
    if (status != Acad::eOk) {
        return status;
    }
    status = modelSpace->appendAcDbEntity(id, entity);
    modelSpace->close();
    if (status == Acad::eOk) {
        entity->close();
    }
    return status;
}

AcDbObjectId AppendOrDrop(AcDbDatabase* drawing, std::unique_ptr<AcDbEntity> entity) {
    AcDbObjectId id;
    if (AppendToModelSpace(DrawingOrWorking(drawing), entity.get(), id) == Acad::eOk) {
        static_cast<void>(entity.release());  // the drawing's now
    }
    return id;
}
