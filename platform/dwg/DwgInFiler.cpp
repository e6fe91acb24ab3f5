#include "platform/dwg/DwgInFiler.h"

#include <cstring>

#include "platform/dwg/filer_kinds.h"

Acad::ErrorStatus DwgInFiler::filerStatus() const {
    return fields_.data().failed() || fields_.handles().failed() ? Acad::eEndOfFile : Acad::eOk;
}

Acad::ErrorStatus DwgInFiler::haveRead(char kind) {
    kinds_ += kind;
    return filerStatus();
}

Acad::ErrorStatus DwgInFiler::readBoolean(bool* value) {
    *value = fields_.data().bit();
    return haveRead(filer_kinds::kBoolean);
}

Acad::ErrorStatus DwgInFiler::readInt16(Adesk::Int16* value) {
    *value = fields_.data().bitShort();
    return haveRead(filer_kinds::kShort);
}

Acad::ErrorStatus DwgInFiler::readUInt16(Adesk::UInt16* value) {
    *value = static_cast<Adesk::UInt16>(fields_.data().bitShort());
    return haveRead(filer_kinds::kShort);
}

Acad::ErrorStatus DwgInFiler::readInt32(Adesk::Int32* value) {
    *value = fields_.data().bitLong();
    return haveRead(filer_kinds::kLong);
}

Acad::ErrorStatus DwgInFiler::readDouble(double* value) {
    *value = fields_.data().bitDouble();
    return haveRead(filer_kinds::kDouble);
}

Acad::ErrorStatus DwgInFiler::readPoint3d(AcGePoint3d* value) {
    fields_(*value);
    return haveRead(filer_kinds::kPoint);
}

Acad::ErrorStatus DwgInFiler::readString(char** value) {
    std::string text;
    fields_.data().text(text);
    *value = new char[text.size() + 1];
    std::memcpy(*value, text.c_str(), text.size() + 1);
    return haveRead(filer_kinds::kText);
}

Acad::ErrorStatus DwgInFiler::readHardPointerId(AcDbHardPointerId* value) {
    fields_.hardPointers(*value);
    return haveRead(filer_kinds::kPointer);
}

// A filer that reads writes nothing.
Acad::ErrorStatus DwgInFiler::writeBoolean(bool /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeInt16(Adesk::Int16 /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeUInt16(Adesk::UInt16 /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeInt32(Adesk::Int32 /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeDouble(double /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writePoint3d(const AcGePoint3d& /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeString(const char* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgInFiler::writeHardPointerId(AcDbHardPointerId /*value*/) {
    return Acad::eNotApplicable;
}
