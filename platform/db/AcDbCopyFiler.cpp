#include "platform/db/AcDbCopyFiler.h"

#include <cstring>

void AcDbCopyFiler::append(const void* from, std::size_t size) {
    const auto* const first = static_cast<const std::uint8_t*>(from);
    bytes_.insert(bytes_.end(), first, first + size);
}

bool AcDbCopyFiler::take(void* to, std::size_t size) {
    if (status_ != Acad::eOk || size > bytes_.size() - position_) {
        status_ = Acad::eEndOfFile;
        return false;
    }
    if (size > 0) {
        std::memcpy(to, bytes_.data() + position_, size);
    }
    position_ += size;
    return true;
}

Acad::ErrorStatus AcDbCopyFiler::writeString(const char* value) {
    const std::size_t size = value != nullptr ? std::strlen(value) : 0;
    write(size);
    append(value, size);
    return status_;
}

Acad::ErrorStatus AcDbCopyFiler::readString(char** value) {
    std::size_t size = 0;
    read(size);
    if (size > bytes_.size() - position_) {
        status_ = Acad::eEndOfFile;
        size = 0;
    }
    *value = new char[size + 1];
    take(*value, size);
    (*value)[size] = '\0';
    return status_;
}

void acutDelString(char*& text) {
    delete[] text;
    text = nullptr;
}
