#pragma once

#include "platform/db/AcDbObjectId.h"
#include "platform/ge/AcGePoint3d.h"
#include "platform/rx/Acad.h"

/// Reads or writes the fields of one object. A read past the end sets filerStatus() to eEndOfFile
/// and yields zeros, empty texts and null ids from then on.
class AcDbDwgFiler {
public:
    virtual ~AcDbDwgFiler() = default;

    virtual AcDb::FilerType filerType() const = 0;
    virtual Acad::ErrorStatus filerStatus() const = 0;

    virtual Acad::ErrorStatus readBoolean(bool* value) = 0;
    virtual Acad::ErrorStatus readInt16(Adesk::Int16* value) = 0;
    virtual Acad::ErrorStatus readUInt16(Adesk::UInt16* value) = 0;
    virtual Acad::ErrorStatus readInt32(Adesk::Int32* value) = 0;
    virtual Acad::ErrorStatus readDouble(double* value) = 0;
    virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* value) = 0;
    /// Gives a text of its own, to be freed with acutDelString.
    virtual Acad::ErrorStatus readString(char** value) = 0;
    virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) = 0;

    virtual Acad::ErrorStatus writeBoolean(bool value) = 0;
    virtual Acad::ErrorStatus writeInt16(Adesk::Int16 value) = 0;
    virtual Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) = 0;
    virtual Acad::ErrorStatus writeInt32(Adesk::Int32 value) = 0;
    virtual Acad::ErrorStatus writeDouble(double value) = 0;
    virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) = 0;
    virtual Acad::ErrorStatus writeString(const char* value) = 0;
    virtual Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) = 0;
};

/// Frees a text handed out by the layer and sets the pointer to null.
void acutDelString(char*& text);
