#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <deque>
#include <string>
#include <variant>

#include "platform/db/AcDbDwgFiler.h"

/// A filer that keeps what is written as a list of typed items and reads them back in order. A read
/// of another type than was written fails the test; past the end it gives zeros and eEndOfFile.
class ListFiler : public AcDbDwgFiler {
public:
    struct Text {
        std::string bytes;
    };
    using Item = std::variant<bool, Adesk::Int16, Adesk::UInt16, Adesk::Int32, double, AcGePoint3d,
                              Text, AcDbObjectId>;
    std::deque<Item> items;

    AcDb::FilerType filerType() const override { return AcDb::kCopyFiler; }
    Acad::ErrorStatus filerStatus() const override { return status_; }

    Acad::ErrorStatus readBoolean(bool* value) override { return Read(*value); }
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override { return Read(*value); }
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override { return Read(*value); }
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override { return Read(*value); }
    Acad::ErrorStatus readDouble(double* value) override { return Read(*value); }
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override { return Read(*value); }
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override { return Read(*value); }
    Acad::ErrorStatus readString(char** value) override {
        Text text;
        Read(text);
        *value = new char[text.bytes.size() + 1];
        std::strcpy(*value, text.bytes.c_str());
        return status_;
    }

    Acad::ErrorStatus writeBoolean(bool value) override { return Write(value); }
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override { return Write(value); }
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override { return Write(value); }
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override { return Write(value); }
    Acad::ErrorStatus writeDouble(double value) override { return Write(value); }
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override { return Write(value); }
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override { return Write(value); }
    Acad::ErrorStatus writeString(const char* value) override { return Write(Text{value}); }

    /// The items as words, such as "int16 2", in order.
    std::vector<std::string> Words() const {
        std::vector<std::string> words;
        for (const Item& item : items) {
            words.push_back(std::visit([](const auto& value) { return Word(value); }, item));
        }
        return words;
    }

private:
    static std::string Word(bool value) { return value ? "bool 1" : "bool 0"; }
    static std::string Word(Adesk::Int16 value) { return "int16 " + std::to_string(value); }
    static std::string Word(Adesk::UInt16 value) { return "uint16 " + std::to_string(value); }
    static std::string Word(Adesk::Int32 value) { return "int32 " + std::to_string(value); }
    static std::string Word(double value) { return "double " + Number(value); }
    static std::string Word(const Text& value) { return "text " + value.bytes; }
    static std::string Word(AcDbObjectId value) { return value.isNull() ? "id null" : "id"; }
    static std::string Word(const AcGePoint3d& p) {
        return "point " + Number(p.x) + "," + Number(p.y) + "," + Number(p.z);
    }
    static std::string Number(double value) {
        char text[40];
        std::snprintf(text, sizeof text, "%.10g", value);
        return text;
    }

    template <class T>
    Acad::ErrorStatus Write(T value) {
        items.emplace_back(std::move(value));
        return Acad::eOk;
    }

    template <class T>
    Acad::ErrorStatus Read(T& value) {
        value = T{};
        if (items.empty()) {
            return status_ = Acad::eEndOfFile;
        }
        if (const T* item = std::get_if<T>(&items.front())) {
            value = *item;
        } else {
            ADD_FAILURE() << "another type stands here: " << Words().front();
        }
        items.pop_front();
        return status_;
    }

    Acad::ErrorStatus status_ = Acad::eOk;
};
