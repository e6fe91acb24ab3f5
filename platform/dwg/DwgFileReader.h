#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/db/AcDbKeptObject.h"
#include "platform/db/DrawingDamage.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgFileRemains.h"
#include "platform/dwg/DwgObjectReader.h"
#include "platform/dwg/file_layout.h"
#include "platform/dwg/object_map.h"

/// Reads an AC1015 file into an empty database. Everything the file says of sizes and places is
/// checked, every check sum compared. What is wrong with the head, the sections or the object map
/// throws DwgFault; a damaged object is left out, as is a part that nothing else depends on.
class DwgFileReader {
public:
    DwgFileReader(AcDbDatabase& database, std::string file);

    void read();
    /// Reads only the objects of a class that modules register, by the class's name.
    void readObjectsOf(std::string_view className);
    /// What the drawing keeps of the file; after reading.
    std::shared_ptr<DwgFileRemains> takeRemains() { return std::move(remains_); }
    /// What was left out, without the file's path; after reading.
    DrawingDamage takeDamage() { return std::move(damage_); }

private:
    /// An object's bits, and what its head says.
    struct ObjectSource {
        AcDbHandle handle = 0;
        std::uint16_t type = 0;
        DwgBitReader data;
        DwgBitReader handles;
    };

    void checkVersion() const;
    void readHead();
    void readLocator(std::size_t position);
    void readObjectMap();
    void readPreview();
    void readAuxiliaryHeader();
    void readVariables();
    void readClasses();
    void readTemplate();
    /// Runs a step that the drawing can do without; what is wrong with it is noted.
    template <class Step>
    void attempt(Step step);
    void readObjects();
    void readObject(AcDbHandle handle, std::size_t position);
    DwgClassTable::ClassPtr classAt(std::size_t position) const;
    void loseObject(AcDbHandle handle, const std::string& reason);
    /// What stands in a lost block or belongs to a lost entity is lost with it.
    void loseEntitiesOfLost();
    ObjectSource sourceOf(AcDbHandle handle, std::size_t position);
    std::unique_ptr<AcDbObject> readKnown(const DwgCodec& codec, ObjectSource source);
    std::unique_ptr<AcDbObject> readCustom(const DwgClassTable::ClassPtr& fileClass,
                                           ObjectSource source);
    std::unique_ptr<AcDbObject> readKept(ObjectSource source);
    std::unique_ptr<AcDbObject> readKeptEntity(DwgObjectReader& reader, AcDbKeptClass keptClass);
    void raiseHandleSeed();
    void requireFoundations() const;
    /// Finds every block's entities by following the links from the first to the last.
    void linkBlocks();
    bool followLinks(const DwgReadState::Chain& chain, std::vector<bool>& linked);
    void mendBlocks(const std::vector<const DwgReadState::Chain*>& broken,
                    std::vector<bool>& linked);
    void checkTail();
    void noteLinks(AcDbHandle handle, const DwgEntityLinks& links);

    /// The bytes of a section, which may be missing.
    std::string_view section(std::uint8_t number) const;
    /// What stands between the marks, without size and check sum.
    std::string_view framed(std::uint8_t number, const dwg::Sentinel& begin,
                            const char* name) const;
    std::size_t mapEnd() const;
    std::string_view bytesAt(std::size_t position, std::size_t size, const char* name) const;

    AcDbDatabase& database_;
    std::shared_ptr<DwgFileRemains> remains_;
    const std::string& file_;  // of the remains
    std::vector<dwg::SectionLocator> sections_;
    std::vector<dwg::MapEntry> map_;
    std::size_t end_ = 0;          // of all that has been found
    std::size_t objectBytes_ = 0;  // of all objects read
    DrawingDamage damage_;
    DwgReadState state_;
};
