#pragma once

#include <cstdint>
#include <vector>

#include "platform/dwg/DwgClassTable.h"
#include "platform/dwg/DwgFieldReader.h"
#include "platform/dwg/DwgSavePlan.h"

class AcDbEntity;

/// What the objects of one file leave for each other while they are read.
struct DwgReadState {
    /// A block's entities, to be found by following the links from the first to the last.
    struct Chain {
        AcDbBlockTableRecord* block = nullptr;
        DwgEntityLinks ends;
    };
    DwgClassTable classes;
    std::vector<Chain> chains;
    std::vector<DwgEntityLinks> links;  // of the entities, by AcDbStub::index
};

/// Visitor that reads one whole object.
class DwgObjectReader : public DwgFieldReader {
public:
    DwgObjectReader(DwgBitReader& data, DwgBitReader& handles, AcDbDatabase& database,
                    DwgReadState& state, AcDbHandle holder)
        : DwgFieldReader(data, handles, database, holder), state_(state) {}

    // The visitor's operations that need to know the drawing.
    void linetype(AcDbObjectId& linetype);
    void plotStyle(std::uint8_t& source, AcDbObjectId& style);
    void records(std::vector<AcDbObjectId>& records);
    void blockRecords(std::vector<AcDbObjectId>& records);
    void linetypeRecords(std::vector<AcDbObjectId>& records);
    void blockEntities(AcDbBlockTableRecord& block, const std::vector<AcDbObjectId>& entities);
    void blockReferenceCount(const AcDbBlockTableRecord& block, std::vector<AcDbObjectId>& known);
    void blockReferences(std::vector<AcDbObjectId>& known);
    /// All that is left of both streams.
    AcDbKeptFields remainingFields();
    /// True when nothing is left but the bits that fill up the last byte.
    bool atEnd() { return data().remaining() == 0 && handles().remaining() < 8; }

    void extendedData(AcDbObject& object);
    void objectHead(AcDbObject& object);
    /// Also gives the proxy graphics and the neighbours that the file has for the entity.
    void entityHead(AcDbEntity& entity, std::vector<std::uint8_t>& graphics, DwgEntityLinks& links);

private:
    void recordsAndTwo(std::vector<AcDbObjectId>& records);
    void reactorsAndDictionary(AcDbObject& object);

    DwgReadState& state_;
};
