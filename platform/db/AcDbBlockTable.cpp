#include "platform/db/AcDbBlockTable.h"

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"

namespace {

AcRxObject* makeBlock() {
    return new AcDbBlockTableRecord;
}

bool refersToNothing(const AcDbEntity& entity) {
    return entity.isKindOf(AcDbBlockReference::desc()) &&
           static_cast<const AcDbBlockReference&>(entity).blockTableRecord().isNull();
}

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, makeBlock);

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    assertWriteEnabled();
    if (entity == nullptr) {
        return Acad::eNullObjectPtr;
    }
    if (!entity->objectId().isNull()) {
        return Acad::eAlreadyInDb;
    }
    AcDbDatabase* const owner = database();
    if (owner == nullptr) {
        return Acad::eNotInDatabase;
    }
    if (refersToNothing(*entity)) {
        return Acad::eNullObjectId;
    }
    entity->setDatabaseDefaults(owner);
    id = owner->addObject(std::unique_ptr<AcDbObject>(entity), objectId());
    id.stub()->writer = true;
    entities_.push_back(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId ignored;
    return appendAcDbEntity(ignored, entity);
}

std::unique_ptr<AcDbObject> AcDbBlockTableRecord::clone() const {
    return std::make_unique<AcDbBlockTableRecord>(*this);
}

namespace {
AcRxObject* makeBlockTable() {
    return new AcDbBlockTable;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, makeBlockTable);

Acad::ErrorStatus AcDbBlockTable::getAt(const char* name, AcDbBlockTableRecord*& record,
                                        AcDb::OpenMode mode, bool openErased) const {
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}
