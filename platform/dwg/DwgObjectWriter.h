#pragma once

#include <span>
#include <vector>

#include "platform/db/AcDbExtents.h"
#include "platform/dwg/DwgClassTable.h"
#include "platform/dwg/DwgFieldWriter.h"
#include "platform/dwg/DwgSavePlan.h"

class AcDbEntity;

/// The two bit streams of an object.
struct DwgObjectStreams {
    DwgBitWriter dataStream;
    DwgBitWriter handleStream;
};

/// Visitor that writes whole objects: the head that all have, their fields, their references. One
/// serves for a drawing's objects one after the other.
class DwgObjectWriter : private DwgObjectStreams, public DwgFieldWriter {
public:
    /// All three must outlive the writer.
    DwgObjectWriter(AcDbDatabase& database, const DwgSavePlan& plan, DwgClassTable& classes)
        : DwgFieldWriter(dataStream, handleStream),
          database_(database),
          plan_(plan),
          classes_(classes) {}

    /// Writes one living object and appends it, framed by its size and check sum, to `file`.
    /// Returns its check sum.
    std::uint16_t write(AcDbObject& object, std::string& file);
    /// The box around what the entities of modules that were written draw in model space.
    const AcDbExtents& extentsOfModules() const { return extentsOfModules_; }

    // The visitor's operations that need to know the drawing.
    void linetype(AcDbObjectId linetype);
    void plotStyle(std::uint8_t source, AcDbObjectId style);
    /// The living records of a table; those of the two spaces, and of the line types by layer and
    /// by block, stand apart from the others.
    void records(const std::vector<AcDbObjectId>& records);
    void blockRecords(const std::vector<AcDbObjectId>& records);
    void linetypeRecords(const std::vector<AcDbObjectId>& records);
    void blockEntities(const AcDbBlockTableRecord& block,
                       const std::vector<AcDbObjectId>& entities);
    /// The references to a block: one byte each among the values, and later the ids. `known` are
    /// those that the file lists which the block was read from.
    void blockReferenceCount(const AcDbBlockTableRecord& block,
                             const std::vector<AcDbObjectId>& known);
    void blockReferences(const std::vector<AcDbObjectId>& known);
    void keptFields(const AcDbKeptFields& fields);

    const AcDbDatabase& database() const { return database_; }
    AcDbHandle holder() const { return holder_; }

private:
    void recordsAndTwo(const std::vector<AcDbObjectId>& records, AcDbObjectId first,
                       AcDbObjectId second);
    void begin(std::uint16_t type, const AcDbObject& object);
    void entityHead(const AcDbEntity& entity, std::span<const std::uint8_t> graphics);
    void entityLinks(const AcDbEntity& entity);
    void objectHead(const AcDbObject& object);
    /// Refers to the living reactors, whose number it returns, and to the extension dictionary.
    int reactorReferences(const AcDbObject& object);
    void keptObject(const AcDbObject& object);
    void customObject(AcDbObject& object);
    void noteExtents(const AcDbEntity& entity, std::span<const std::uint8_t> graphics);
    std::uint16_t finish(std::string& file);

    AcDbDatabase& database_;
    const DwgSavePlan& plan_;
    DwgClassTable& classes_;
    AcDbHandle holder_ = 0;
    std::size_t sizePosition_ = 0;  // of the field that says how many bits the values take
    std::vector<AcDbObjectId> blockReferences_;
    AcDbExtents extentsOfModules_;
};
