#include "platform/db/AcDbTextStyleTable.h"

namespace {
AcRxObject* makeTextStyleTable() {
    return new AcDbTextStyleTable;
}
AcRxObject* makeTextStyle() {
    return new AcDbTextStyleTableRecord;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, makeTextStyleTable);
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, makeTextStyle);

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const char* fontFile) {
    if (fontFile == nullptr) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    fileName_ = fontFile;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const char* fontFile) {
    if (fontFile == nullptr) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    bigFontFileName_ = fontFile;
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbTextStyleTableRecord::clone() const {
    return std::make_unique<AcDbTextStyleTableRecord>(*this);
}
