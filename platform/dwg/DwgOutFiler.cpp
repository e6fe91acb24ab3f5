#include "platform/dwg/DwgOutFiler.h"

#include "platform/dwg/filer_kinds.h"

DwgOutFiler::DwgOutFiler(DwgFieldWriter& fields, const AcDbKeptFields* rest)
    : fields_(fields), rest_(rest) {
    markIfComplete();
}

Acad::ErrorStatus DwgOutFiler::wrote(char kind) {
    if (rest_ != nullptr && sameKinds_ && !marked_) {
        sameKinds_ = rest_->kindsReadBefore[count_] == kind;
        ++count_;
        markIfComplete();
    }
    return Acad::eOk;
}

void DwgOutFiler::markIfComplete() {
    if (rest_ != nullptr && sameKinds_ && count_ == rest_->kindsReadBefore.size()) {
        marked_ = true;
        dataMark_ = fields_.data().bitPosition();
        handleMark_ = fields_.handles().bitPosition();
    }
}

void DwgOutFiler::endBeforeRest() {
    if (marked_) {
        fields_.data().truncate(dataMark_);
        fields_.handles().truncate(handleMark_);
    }
}

Acad::ErrorStatus DwgOutFiler::writeBoolean(bool value) {
    fields_.data().bit(value);
    return wrote(filer_kinds::kBoolean);
}

Acad::ErrorStatus DwgOutFiler::writeInt16(Adesk::Int16 value) {
    fields_.data().bitShort(value);
    return wrote(filer_kinds::kShort);
}

Acad::ErrorStatus DwgOutFiler::writeUInt16(Adesk::UInt16 value) {
    fields_.data().bitShort(static_cast<Adesk::Int16>(value));
    return wrote(filer_kinds::kShort);
}

Acad::ErrorStatus DwgOutFiler::writeInt32(Adesk::Int32 value) {
    fields_.data().bitLong(value);
    return wrote(filer_kinds::kLong);
}

Acad::ErrorStatus DwgOutFiler::writeDouble(double value) {
    fields_.data().bitDouble(value);
    return wrote(filer_kinds::kDouble);
}

Acad::ErrorStatus DwgOutFiler::writePoint3d(const AcGePoint3d& value) {
    fields_(value);
    return wrote(filer_kinds::kPoint);
}

Acad::ErrorStatus DwgOutFiler::writeString(const char* value) {
    fields_.data().text(value != nullptr ? value : "");
    return wrote(filer_kinds::kText);
}

Acad::ErrorStatus DwgOutFiler::writeHardPointerId(AcDbHardPointerId value) {
    fields_.hardPointers(value);
    return wrote(filer_kinds::kPointer);
}

// A filer that writes reads nothing.
Acad::ErrorStatus DwgOutFiler::readBoolean(bool* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readInt16(Adesk::Int16* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readUInt16(Adesk::UInt16* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readInt32(Adesk::Int32* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readDouble(double* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readPoint3d(AcGePoint3d* /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readString(char** /*value*/) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus DwgOutFiler::readHardPointerId(AcDbHardPointerId* /*value*/) {
    return Acad::eNotApplicable;
}
