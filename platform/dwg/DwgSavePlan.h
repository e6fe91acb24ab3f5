#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/db/AcDbObjectId.h"

class AcDbBlockTableRecord;

/// Neighbours of an entity within its block, in drawing order; null at the ends.
struct DwgEntityLinks {
    AcDbObjectId previous;
    AcDbObjectId next;
};

/// What has to be known of the whole drawing before its first object is written.
class DwgSavePlan {
public:
    /// Numbers the drawing's entries (AcDbStub::index) and gives blocks that were made here the
    /// entities that stand around their own.
    explicit DwgSavePlan(AcDbDatabase& database);

    /// False for what is erased, or stands in an erased block or belongs to an erased entity.
    bool isWritten(const AcDbStub& stub) const;
    /// Null for an entity that is in no block's list.
    const DwgEntityLinks* linksOf(const AcDbStub& stub) const;
    /// True when the neighbours are those that the file has which the entity was read from.
    bool hasLinksOfFile(const AcDbStub& stub) const;
    /// True when a block that nobody has touched has the entities and the references that the file
    /// lists.
    bool hasListsOfFile(const AcDbBlockTableRecord& block) const;
    /// First and last of the living entities of a block; null for none.
    DwgEntityLinks endsOf(const AcDbBlockTableRecord& block) const;
    /// All living references to a block, in the order of the entries.
    const std::vector<AcDbObjectId>& referencesTo(const AcDbBlockTableRecord& block) const;

private:
    enum Mark : std::uint8_t { kListed = 1, kLinksChanged = 2, kLeftOut = 4 };

    void leaveOutParts(AcDbDatabase& database);
    void collectReferences(AcDbDatabase& database);
    void linkEntities(const AcDbBlockTableRecord& block);

    std::vector<DwgEntityLinks> links_;  // by index of the entry
    std::vector<std::uint8_t> marks_;
    std::unordered_map<const AcDbStub*, std::vector<AcDbObjectId>> references_;
};
