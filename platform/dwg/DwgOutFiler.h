#pragma once

#include <cstddef>

#include "platform/db/AcDbDwgFiler.h"
#include "platform/db/AcDbKeptFields.h"
#include "platform/dwg/DwgFieldWriter.h"

/// Files an object's own fields into its bit streams.
class DwgOutFiler : public AcDbDwgFiler {
public:
    /// `rest` are fields that were left over when the object was read; null for none.
    explicit DwgOutFiler(DwgFieldWriter& fields, const AcDbKeptFields* rest = nullptr);

    AcDb::FilerType filerType() const override { return AcDb::kFileFiler; }
    Acad::ErrorStatus filerStatus() const override { return Acad::eOk; }

    Acad::ErrorStatus writeBoolean(bool value) override;
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override;
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override;
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override;
    Acad::ErrorStatus writeDouble(double value) override;
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override;
    Acad::ErrorStatus writeString(const char* value) override;
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override;

    Acad::ErrorStatus readBoolean(bool* value) override;
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override;
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override;
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override;
    Acad::ErrorStatus readDouble(double* value) override;
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override;
    Acad::ErrorStatus readString(char** value) override;
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override;

    /// Takes back what was written beyond the values that were read before the rest, if they are of
    /// the same kinds: the rest holds these fields.
    void endBeforeRest();

private:
    Acad::ErrorStatus wrote(char kind);
    void markIfComplete();

    DwgFieldWriter& fields_;
    const AcDbKeptFields* rest_;
    std::size_t count_ = 0;  // values written
    bool sameKinds_ = true;  // so far, as were read before the rest
    bool marked_ = false;
    std::size_t dataMark_ = 0;  // where the last of these values ends
    std::size_t handleMark_ = 0;
};
