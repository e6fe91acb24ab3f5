#include "platform/db/AcDbBlockTable.h"

#include "platform/db/AcDbBlockTableRecord.h"

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
