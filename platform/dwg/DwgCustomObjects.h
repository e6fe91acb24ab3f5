#pragma once

#include <cstdint>
#include <memory>
#include <vector>

class AcDbEntity;
class AcDbObject;

struct AcDbFileClass;
struct AcDbStub;
class DwgObjectReader;
class DwgObjectWriter;

/// Objects of the classes that modules bring: filed through their own dwgOutFields and dwgInFields.

/// Holds an object open for read while it is filed, whoever has it open already.
class DwgReadAccess {
public:
    explicit DwgReadAccess(AcDbObject& object);
    ~DwgReadAccess();
    DwgReadAccess(const DwgReadAccess&) = delete;
    DwgReadAccess& operator=(const DwgReadAccess&) = delete;

private:
    AcDbStub* stub_ = nullptr;
};

/// The class as the classes section lists it. Throws DwgFault for a class without a DXF name.
std::shared_ptr<const AcDbFileClass> FileClassOf(const AcDbObject& object);
/// The entity as it draws itself for programs that do not know its class; empty for nothing drawn.
std::vector<std::uint8_t> ProxyGraphicsOf(AcDbEntity& entity);

/// The class's own fields, then those that its reader had left over, if any. Where the class writes
/// more values now than it read then, the file's own come in their place.
void WriteCustomFields(DwgObjectWriter& writer, AcDbObject& object);
/// The class's own fields; what it leaves over goes to the object's file data.
void ReadCustomFields(DwgObjectReader& reader, AcDbObject& object);

/// A new object of the registered class of that name; null when there is none, or it makes none, or
/// only an object of the other kind.
std::unique_ptr<AcDbObject> MakeCustomObject(const AcDbFileClass& fileClass);
