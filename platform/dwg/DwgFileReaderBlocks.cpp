// What can be put together only when all objects are there.
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/codec/block_record_fields.h"

namespace {

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
    for (const DwgReadState::Chain& chain : state_.chains) {
        std::vector<AcDbObjectId>& entities =
            DwgFields<AcDbBlockTableRecord>::entities(*chain.block);
        AcDbObjectId id = chain.ends.previous;
        while (!id.isNull()) {
            AcDbObject* entity = AcDbDatabase::objectOf(id);
            if (entity == nullptr || !entity->isKindOf(AcDbEntity::desc()) ||
                linked[id.stub()->index]) {
                throw DwgFault(std::string("the entities of block ") + chain.block->name() +
                               " do not follow each other");
            }
            linked[id.stub()->index] = true;
            entity->setOwnerId(chain.block->objectId());
            entities.push_back(id);
            id = id == chain.ends.next ? AcDbObjectId::kNull : state_.links[id.stub()->index].next;
        }
        const AcDbObjectId last = entities.empty() ? AcDbObjectId::kNull : entities.back();
        if (last != chain.ends.next) {
            throw DwgFault(std::string("block ") + chain.block->name() +
                           " ends before its last entity");
        }
    }
}
