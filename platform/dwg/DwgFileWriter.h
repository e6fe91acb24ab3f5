#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/db/AcDbExtents.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/DwgClassTable.h"
#include "platform/dwg/DwgFileRemains.h"
#include "platform/dwg/DwgSavePlan.h"
#include "platform/dwg/file_layout.h"
#include "platform/dwg/object_map.h"

/// Makes the AC1015 file of a drawing. Objects that came from a file and have not been touched
/// since are copied from it as they stand there.
class DwgFileWriter {
public:
    /// Notes in the header variables that the drawing is saved today.
    explicit DwgFileWriter(AcDbDatabase& database);

    /// The whole file. Throws DwgFault when an object cannot be filed. To be called once.
    std::string write();

private:
    void writeObjects();
    bool isUntouched(const AcDbStub& stub) const;
    std::uint16_t copyObject(const AcDbStub& stub);
    /// Whether the object that was written last has the bits that it has in the file.
    bool hasBitsOfFile(const AcDbStub& stub, std::size_t start) const;
    void noteExtents(const AcDbExtents& ofModules);
    void mixIntoContentKey(std::uint16_t crc);
    void nameVersion();

    void appendHead();
    void appendAuxiliaryHeader();
    void appendPreview();
    void appendVariables();
    void appendClasses();
    DwgBitWriter classBits() const;
    void appendObjects();
    void appendFreeSpace();
    void appendSecondHeader();
    void appendUnknownSections();
    void appendTemplate();
    void finishHead();

    void beginSection(std::uint8_t number);
    void endSection();
    /// Size, content and check sum between the marks.
    void appendFramed(const dwg::Sentinel& begin, std::span<const std::uint8_t> content);

    AcDbDatabase& database_;
    const DwgFileRemains& remains_;
    DwgSavePlan plan_;
    DwgClassTable classes_;
    std::string objects_;
    std::vector<dwg::MapEntry> map_;  // positions within objects_ at first
    std::uint64_t contentKey_ = 0;    // differs when an object does
    bool changed_ = false;            // an object is new, differs from the file's, or is gone
    std::string file_;
    std::uint32_t objectsStart_ = 0;
    std::vector<dwg::SectionLocator> sections_;
};
