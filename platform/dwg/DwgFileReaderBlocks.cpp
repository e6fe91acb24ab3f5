// What can be put together only when all objects are there.
#include <unordered_map>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/codec/block_record_fields.h"
#include "platform/win32/code_page.h"

namespace {

// An entity that stands in no block yet.
bool isFreeEntity(AcDbObjectId id, const std::vector<bool>& linked) {
    const AcDbObject* object = AcDbDatabase::objectOf(id);
    return object != nullptr && object->isKindOf(AcDbEntity::desc()) && !linked[id.stub()->index];
}

bool isAroundBlock(const AcDbObject& entity) {
    return entity.isA() == AcDbBlockBegin::desc() || entity.isA() == AcDbBlockEnd::desc();
}

template <class T>
void require(AcDbObjectId id, const char* what) {
    const AcDbObject* object = AcDbDatabase::objectOf(id);
    if (object == nullptr || !object->isKindOf(T::desc())) {
        throw DwgFault(std::string("the drawing has no ") + what);
    }
}

}  // namespace

// What everything else in a drawing leans on.
void DwgFileReader::requireFoundations() const {
    const HeaderVariables& header = database_.header();
    require<AcDbBlockTable>(header.BLOCK_CONTROL_OBJECT, "table of blocks");
    require<AcDbLayerTable>(header.LAYER_CONTROL_OBJECT, "table of layers");
    require<AcDbTextStyleTable>(header.STYLE_CONTROL_OBJECT, "table of text styles");
    require<AcDbLinetypeTable>(header.LTYPE_CONTROL_OBJECT, "table of line types");
    require<AcDbDictionary>(header.DICTIONARY_NAMED_OBJECTS, "dictionary of named objects");
    require<AcDbBlockTableRecord>(header.BLOCK_RECORD_MODEL_SPACE, "model space");
    require<AcDbBlockTableRecord>(header.BLOCK_RECORD_PAPER_SPACE, "paper space");
}

void DwgFileReader::linkBlocks() {
    std::vector<bool> linked(state_.links.size());
    std::vector<const DwgReadState::Chain*> broken;
    for (const DwgReadState::Chain& chain : state_.chains) {
        if (!followLinks(chain, linked)) {
            broken.push_back(&chain);
        }
    }
    if (!broken.empty()) {
        mendBlocks(broken, linked);
    }
}

// False when the links do not lead to the last entity; the block has those up to the break then.
bool DwgFileReader::followLinks(const DwgReadState::Chain& chain, std::vector<bool>& linked) {
    std::vector<AcDbObjectId>& entities = DwgFields<AcDbBlockTableRecord>::entities(*chain.block);
    AcDbObjectId id = chain.ends.previous;
    while (isFreeEntity(id, linked)) {
        linked[id.stub()->index] = true;
        AcDbDatabase::objectOf(id)->setOwnerId(chain.block->objectId());
        entities.push_back(id);
        if (id == chain.ends.next) {
            return true;
        }
        id = state_.links[id.stub()->index].next;
    }
    return id.isNull() && chain.ends.next.isNull() && entities.empty();
}

// Entities behind the break are found from the last one backwards. Between the two parts come those
// that say themselves that they stand in the block.
void DwgFileReader::mendBlocks(const std::vector<const DwgReadState::Chain*>& broken,
                               std::vector<bool>& linked) {
    std::unordered_map<const AcDbStub*, std::vector<AcDbObjectId>> behind;
    for (const DwgReadState::Chain* chain : broken) {
        std::vector<AcDbObjectId>& found = behind[chain->block->objectId().stub()];
        for (AcDbObjectId id = chain->ends.next; isFreeEntity(id, linked);
             id = state_.links[id.stub()->index].previous) {
            linked[id.stub()->index] = true;
            found.push_back(id);
        }
    }
    for (AcDbStub& stub : database_.entries()) {
        const AcDbObjectId id(&stub);
        if (!isFreeEntity(id, linked) || isAroundBlock(*stub.object)) {
            continue;
        }
        const auto block = behind.find(stub.object->ownerId().stub());
        if (block != behind.end()) {
            auto& record = static_cast<AcDbBlockTableRecord&>(*block->first->object);
            DwgFields<AcDbBlockTableRecord>::entities(record).push_back(id);
        }
    }
    for (const DwgReadState::Chain* chain : broken) {
        AcDbBlockTableRecord& block = *chain->block;
        std::vector<AcDbObjectId>& entities = DwgFields<AcDbBlockTableRecord>::entities(block);
        const std::vector<AcDbObjectId>& last = behind[block.objectId().stub()];
        entities.insert(entities.end(), last.rbegin(), last.rend());
        // Nothing of it can be copied from the file: the links there lead nowhere.
        block.objectId().stub()->filePosition = 0;
        for (const AcDbObjectId id : entities) {
            AcDbDatabase::objectOf(id)->setOwnerId(block.objectId());
            id.stub()->filePosition = 0;
        }
        damage_.note(std::string("the entities of block ") + win32::Utf8FromGbk(block.name()) +
                     " do not follow each other");
    }
}
