#include "platform/db/AcDbLayerTable.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/db/line_weight.h"

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

void AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    assertWriteEnabled();
    frozen_ = frozen;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    assertWriteEnabled();
    color_ = color;
}

void AcDbLayerTableRecord::setIsPlottable(bool plottable) {
    assertWriteEnabled();
    plottable_ = plottable;
}

AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
    return db::LineWeightOf(lineWeight_);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
    const std::optional<std::uint8_t> code = db::CodeOf(weight);
    if (!code) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    lineWeight_ = *code;
    return Acad::eOk;
}

void AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId linetype) {
    assertWriteEnabled();
    linetypeId_ = linetype;
}

void AcDbLayerTableRecord::takeDefaults(const AcDbDatabase& database) {
    if (linetypeId_.isNull()) {
        linetypeId_ = database.continuousLinetype();
    }
}

std::unique_ptr<AcDbObject> AcDbLayerTableRecord::clone() const {
    return std::make_unique<AcDbLayerTableRecord>(*this);
}
