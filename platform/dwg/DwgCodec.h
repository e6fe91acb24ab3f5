#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/dwg/DwgFields.h"

class AcDbObject;
class AcRxClass;
struct AcDbFileClass;
class DwgIdTranslator;
class DwgObjectReader;
class DwgObjectWriter;

/// How the objects of one class are written to drawing files and read from them.
struct DwgCodec {
    std::uint16_t type = 0;                          ///< the format's number; 0 with a file class
    std::shared_ptr<const AcDbFileClass> fileClass;  ///< null for a class of the format itself
    AcRxClass* record = nullptr;
    bool isEntity = false;
    std::unique_ptr<AcDbObject> (*make)() = nullptr;
    std::unique_ptr<AcDbObject> (*copy)(const AcDbObject&) = nullptr;  ///< free
    void (*write)(DwgObjectWriter&, const AcDbObject&) = nullptr;
    void (*read)(DwgObjectReader&, AcDbObject&) = nullptr;
    void (*replaceIds)(DwgIdTranslator&, AcDbObject&) = nullptr;
};

/// The codec of an object's class; null for classes that modules bring and for kept objects.
const DwgCodec* FindCodec(const AcDbObject& object);
/// The codec of a type number below 500; null when nothing here reads it.
const DwgCodec* FindCodec(std::uint16_t type);
/// The codec of a class that the classes section lists; null when nothing here reads it.
const DwgCodec* FindCodec(std::string_view dxfName);

/// Whether objects of a type number below 500 are entities.
bool IsEntityType(std::uint16_t type);
/// Published name of the class with that number in the format; "AcDbObject" for unknown ones.
const char* ClassNameOfType(std::uint16_t type);
