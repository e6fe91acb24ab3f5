#include "platform/db/AcDbLayerTable.h"

#include "platform/db/AcDbDatabase.h"

namespace {
AcRxObject* makeLayerTable() {
    return new AcDbLayerTable;
}
AcRxObject* makeLayer() {
    return new AcDbLayerTableRecord;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, makeLayerTable);
ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, makeLayer);

AcDbLayerTableRecord::AcDbLayerTableRecord() {
    constexpr Adesk::UInt16 kForeground = 7;
    color_.setColorIndex(kForeground);
}

void AcDbLayerTableRecord::setIsOff(bool off) {
    assertWriteEnabled();
    off_ = off;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    assertWriteEnabled();
    color_ = color;
}

void AcDbLayerTableRecord::takeDefaults(const AcDbDatabase& database) {
    if (linetypeId_.isNull()) {
        linetypeId_ = database.continuousLinetype();
    }
}

std::unique_ptr<AcDbObject> AcDbLayerTableRecord::clone() const {
    return std::make_unique<AcDbLayerTableRecord>(*this);
}
