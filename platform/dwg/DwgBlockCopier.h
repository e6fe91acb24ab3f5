#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/db/AcDbObjectId.h"
#include "platform/db/AcDbSymbolTable.h"
#include "platform/rx/Acad.h"

class AcDbBlockTableRecord;
class AcDbEntity;

/// Copies a drawing's model space into another drawing as a block definition, with what its
/// entities need: layers, styles, line types, nested blocks. Where the other drawing has a record
/// of the same name, that one is used.
///
/// Not copied: application data and extension dictionaries, and entities that refer to objects of
/// other kinds, without which they mean nothing.
class DwgBlockCopier {
public:
    DwgBlockCopier(AcDbDatabase& target, AcDbDatabase& source);

    /// Makes the block; its name must not be taken.
    Acad::ErrorStatus copyModelSpace(const char* blockName, AcDbObjectId& blockId);
    /// How many entities of which class could not be copied.
    const std::map<std::string, std::size_t>& leftOut() const { return leftOut_; }

private:
    using Children = std::vector<AcDbObjectId>;
    struct RecordKind {
        std::ptrdiff_t rank = 0;  ///< records lean on records of lower rank only
        AcDbObjectId table;       ///< the target's for such records; null for what is not copied
    };
    /// A block whose record is made already.
    struct Block {
        const AcDbBlockTableRecord* source = nullptr;
        AcDbBlockTableRecord* copy = nullptr;
    };

    void findParts();
    void copyEntities(const Block& block);
    bool canCopy(const AcDbEntity& entity) const;
    /// Gives the entity's copy, and those of its parts, their ids.
    void announce(const AcDbEntity& entity);
    void copyEntity(AcDbEntity& entity, AcDbObjectId owner);
    void replaceReactors(AcDbObject& copy) const;
    void replaceIds(AcDbObject& copy);

    /// What stands for an object of the source in the target; null for nothing.
    AcDbObjectId counterpart(AcDbObjectId id);
    AcDbObjectId recordCounterpart(const AcDbSymbolTableRecord& record);
    AcDbObjectId blockCounterpart(const AcDbBlockTableRecord& block);
    AcDbObjectId addRecord(AcDbObjectId tableId, std::unique_ptr<AcDbSymbolTableRecord> record);
    AcDbObjectId addBlock(const AcDbBlockTableRecord& source, const std::string& name);
    RecordKind kindOf(const AcDbSymbolTableRecord& record) const;

    AcDbDatabase& target_;
    AcDbDatabase& source_;
    std::unordered_map<const AcDbStub*, AcDbObjectId> counterparts_;
    std::unordered_map<const AcDbStub*, Children> parts_;  // of entities that own others
    std::vector<Block> pending_;
    std::ptrdiff_t leaning_ = PTRDIFF_MAX;  // rank of the record whose references are replaced
    std::map<std::string, std::size_t> leftOut_;
};
