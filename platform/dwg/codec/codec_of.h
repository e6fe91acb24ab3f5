#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "platform/db/AcDbEntity.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgIdTranslator.h"
#include "platform/dwg/DwgObjectReader.h"
#include "platform/dwg/DwgObjectWriter.h"

/// The codec of a class whose DwgFields are known where it is made.
template <class T>
DwgCodec CodecOf(std::uint16_t type) {
    DwgCodec codec;
    codec.type = type;
    codec.record = T::desc();
    codec.isEntity = std::is_base_of_v<AcDbEntity, T>;
    codec.make = []() -> std::unique_ptr<AcDbObject> { return std::make_unique<T>(); };
    codec.copy = [](const AcDbObject& object) -> std::unique_ptr<AcDbObject> {
        return std::make_unique<T>(static_cast<const T&>(object));
    };
    codec.write = [](DwgObjectWriter& writer, const AcDbObject& object) {
        DwgFields<T>::fields(writer, static_cast<const T&>(object));
    };
    codec.read = [](DwgObjectReader& reader, AcDbObject& object) {
        DwgFields<T>::fields(reader, static_cast<T&>(object));
    };
    codec.replaceIds = [](DwgIdTranslator& translator, AcDbObject& object) {
        DwgFields<T>::fields(translator, static_cast<T&>(object));
    };
    return codec;
}

/// The same for a class that the classes section lists.
template <class T>
DwgCodec CodecOf(AcDbFileClass fileClass) {
    DwgCodec codec = CodecOf<T>(std::uint16_t{0});
    codec.fileClass = std::make_shared<const AcDbFileClass>(std::move(fileClass));
    return codec;
}

/// A class of the published database library, under the application name that goes with it.
inline AcDbFileClass DatabaseClass(const char* className, const char* dxfName) {
    return {"ObjectDBX Classes", className, dxfName};
}
