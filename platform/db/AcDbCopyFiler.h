#pragma once

#include <cstdint>
#include <type_traits>
#include <vector>

#include "platform/db/AcDbDwgFiler.h"

/// Files one object into memory and out again, to copy it. Ids come back as they are. What is
/// written first is read first.
class AcDbCopyFiler : public AcDbDwgFiler {
public:
    AcDb::FilerType filerType() const override { return AcDb::kCopyFiler; }
    Acad::ErrorStatus filerStatus() const override { return status_; }

    Acad::ErrorStatus readBoolean(bool* value) override { return read(*value); }
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override { return read(*value); }
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override { return read(*value); }
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override { return read(*value); }
    Acad::ErrorStatus readDouble(double* value) override { return read(*value); }
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override { return read(*value); }
    Acad::ErrorStatus readString(char** value) override;
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override { return read(*value); }

    Acad::ErrorStatus writeBoolean(bool value) override { return write(value); }
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override { return write(value); }
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override { return write(value); }
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override { return write(value); }
    Acad::ErrorStatus writeDouble(double value) override { return write(value); }
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override { return write(value); }
    Acad::ErrorStatus writeString(const char* value) override;
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override { return write(value); }

private:
    template <class T>
    Acad::ErrorStatus read(T& value) {
        if (!take(&value, sizeof value)) {
            value = T{};
        }
        return status_;
    }
    template <class T>
    Acad::ErrorStatus write(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        append(&value, sizeof value);
        return status_;
    }
    bool take(void* to, std::size_t size);
    void append(const void* from, std::size_t size);

    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
    Acad::ErrorStatus status_ = Acad::eOk;
};
