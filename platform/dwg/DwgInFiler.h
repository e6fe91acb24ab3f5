#pragma once

#include <string>

#include "platform/db/AcDbDwgFiler.h"
#include "platform/dwg/DwgFieldReader.h"

/// Gives an object's own fields from its bit streams.
class DwgInFiler : public AcDbDwgFiler {
public:
    explicit DwgInFiler(DwgFieldReader& fields) : fields_(fields) {}

    /// The kinds of the values read so far, a letter each.
    const std::string& kinds() const { return kinds_; }

    AcDb::FilerType filerType() const override { return AcDb::kFileFiler; }
    Acad::ErrorStatus filerStatus() const override;

    Acad::ErrorStatus readBoolean(bool* value) override;
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override;
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override;
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override;
    Acad::ErrorStatus readDouble(double* value) override;
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override;
    Acad::ErrorStatus readString(char** value) override;
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override;

    Acad::ErrorStatus writeBoolean(bool value) override;
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override;
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override;
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override;
    Acad::ErrorStatus writeDouble(double value) override;
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override;
    Acad::ErrorStatus writeString(const char* value) override;
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override;

private:
    Acad::ErrorStatus haveRead(char kind);

    DwgFieldReader& fields_;
    std::string kinds_;
};
