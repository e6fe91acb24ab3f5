#include "platform/dwg/DwgSavePlan.h"

#include <algorithm>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/block_record_fields.h"
#include "platform/dwg/entity_types.h"

namespace {

bool isLiving(AcDbObjectId id) {
    return AcDbDatabase::objectOf(id) != nullptr && !id.isErased();
}
bool isNew(AcDbObjectId id) {
    return id.stub()->filePosition == 0;
}

// The block that an object refers to as an occurrence of it; null for none.
AcDbObjectId referredBlock(const AcDbObject& object) {
    if (object.isA() == AcDbBlockReference::desc()) {
        return static_cast<const AcDbBlockReference&>(object).blockTableRecord();
    }
    if (object.isA() != AcDbKeptEntity::desc()) {
        return {};
    }
    const auto& kept = static_cast<const AcDbKeptEntity&>(object);
    const std::uint16_t type = kept.keptClass().type;
    const auto& references = kept.keptFields().references;
    return (type == dwg::kBlockReference || type == dwg::kBlockReferenceRows) && !references.empty()
               ? references.front().id
               : AcDbObjectId::kNull;
}

// The entities around a block's own are made with the first save: modules know nothing of them.
void completeBlock(AcDbDatabase& database, AcDbBlockTableRecord& block) {
    using Fields = DwgFields<AcDbBlockTableRecord>;
    const auto complete = [&](AcDbObjectId& id, std::unique_ptr<AcDbEntity> entity) {
        // One that was damaged in the file is missing as well, and one that was taken back.
        if (!isLiving(id)) {
            entity->setDatabaseDefaults(&database);
            id = database.addObject(std::move(entity), block.objectId());
            block.objectId().stub()->filePosition = 0;
        }
    };
    complete(Fields::begin(block), std::make_unique<AcDbBlockBegin>(block.name()));
    complete(Fields::end(block), std::make_unique<AcDbBlockEnd>());
}

}  // namespace

DwgSavePlan::DwgSavePlan(AcDbDatabase& database) {
    std::vector<AcDbBlockTableRecord*> blocks;
    for (const AcDbStub& stub : database.entries()) {
        if (stub.object && stub.object->isA() == AcDbBlockTableRecord::desc()) {
            blocks.push_back(static_cast<AcDbBlockTableRecord*>(stub.object.get()));
        }
    }
    for (AcDbBlockTableRecord* block : blocks) {
        if (!block->isErased()) {
            completeBlock(database, *block);
        }
    }
    std::uint32_t index = 0;
    for (AcDbStub& stub : database.entries()) {
        stub.index = index++;
    }
    links_.resize(index);
    marks_.resize(index);
    for (const AcDbBlockTableRecord* block : blocks) {
        linkEntities(*block);
    }
    leaveOutParts(database);
    collectReferences(database);
}

// Vertices and attributes go with the entity that they belong to.
void DwgSavePlan::leaveOutParts(AcDbDatabase& database) {
    for (const AcDbStub& stub : database.entries()) {
        if (stub.object == nullptr || (marks_[stub.index] & kListed) != 0 ||
            !stub.object->isKindOf(AcDbEntity::desc())) {
            continue;
        }
        const AcDbObject* const owner = AcDbDatabase::objectOf(stub.object->ownerId());
        if (owner != nullptr && owner->isKindOf(AcDbEntity::desc()) &&
            !isWritten(*owner->objectId().stub())) {
            marks_[stub.index] |= kLeftOut;
        }
    }
}

void DwgSavePlan::linkEntities(const AcDbBlockTableRecord& block) {
    AcDbObjectId previous;
    bool gapBefore = false;  // what stood before in the file is not there any more
    for (const AcDbObjectId id : block.entityIds()) {
        std::uint8_t& mark = marks_[id.stub()->index];
        mark |= kListed;
        if (block.isErased()) {
            mark |= kLeftOut;
        }
        if (!isLiving(id)) {
            gapBefore = true;
            if (!previous.isNull()) {
                marks_[previous.stub()->index] |= kLinksChanged;
            }
            continue;
        }
        links_[id.stub()->index].previous = previous;
        if (gapBefore || isNew(id)) {
            mark |= kLinksChanged;
        }
        if (!previous.isNull()) {
            links_[previous.stub()->index].next = id;
            if (isNew(id)) {
                marks_[previous.stub()->index] |= kLinksChanged;
            }
        }
        previous = id;
        gapBefore = false;
    }
}

void DwgSavePlan::collectReferences(AcDbDatabase& database) {
    for (AcDbStub& stub : database.entries()) {
        const AcDbObjectId block =
            isWritten(stub) ? referredBlock(*stub.object) : AcDbObjectId::kNull;
        if (!block.isNull()) {
            references_[block.stub()].emplace_back(&stub);
        }
    }
}

bool DwgSavePlan::isWritten(const AcDbStub& stub) const {
    return stub.object != nullptr && !stub.erased && (marks_[stub.index] & kLeftOut) == 0;
}

const DwgEntityLinks* DwgSavePlan::linksOf(const AcDbStub& stub) const {
    return (marks_[stub.index] & kListed) != 0 ? &links_[stub.index] : nullptr;
}

bool DwgSavePlan::hasLinksOfFile(const AcDbStub& stub) const {
    return (marks_[stub.index] & kLinksChanged) == 0;
}

bool DwgSavePlan::hasListsOfFile(const AcDbBlockTableRecord& block) const {
    const auto isOfFile = [](AcDbObjectId id) { return isLiving(id) && !isNew(id); };
    const std::vector<AcDbObjectId>& listed = DwgFields<AcDbBlockTableRecord>::references(block);
    const std::vector<AcDbObjectId>& made = referencesTo(block);
    // Some programs leave references listed that are gone: a handle without an object.
    const auto isAsListed = [&](AcDbObjectId id) {
        return id.isNull() || isOfFile(id) || AcDbDatabase::objectOf(id) == nullptr;
    };
    return std::all_of(block.entityIds().begin(), block.entityIds().end(), isOfFile) &&
           std::all_of(listed.begin(), listed.end(), isAsListed) &&
           std::all_of(made.begin(), made.end(), isOfFile);
}

DwgEntityLinks DwgSavePlan::endsOf(const AcDbBlockTableRecord& block) const {
    DwgEntityLinks ends;
    const std::vector<AcDbObjectId>& entities = block.entityIds();
    for (auto id = entities.begin(); id != entities.end() && ends.previous.isNull(); ++id) {
        ends.previous = isLiving(*id) ? *id : AcDbObjectId::kNull;
    }
    for (auto id = entities.rbegin(); id != entities.rend() && ends.next.isNull(); ++id) {
        ends.next = isLiving(*id) ? *id : AcDbObjectId::kNull;
    }
    return ends;
}

const std::vector<AcDbObjectId>& DwgSavePlan::referencesTo(
    const AcDbBlockTableRecord& block) const {
    static const std::vector<AcDbObjectId> none;
    const auto found = references_.find(block.objectId().stub());
    return found == references_.end() ? none : found->second;
}
