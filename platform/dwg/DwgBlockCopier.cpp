#include "platform/dwg/DwgBlockCopier.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCopyFiler.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/HeaderVariables.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"
#include "platform/dwg/DwgIdTranslator.h"
#include "platform/dwg/codec/block_record_fields.h"
#include "platform/dwg/codec/entity_fields.h"
#include "platform/dwg/codec/kept_fields.h"

namespace {

constexpr std::uint8_t kHardPointer = 5;

using BlockFields = DwgFields<AcDbBlockTableRecord>;

bool isLiving(AcDbObjectId id) {
    return AcDbDatabase::objectOf(id) != nullptr && !id.isErased();
}

// Files an object's own fields with other ids in place of theirs.
class IdReplacingFiler : public AcDbCopyFiler {
public:
    explicit IdReplacingFiler(DwgIdTranslator& translator) : translator_(translator) {}
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override {
        translator_.replace(value);
        return AcDbCopyFiler::writeHardPointerId(value);
    }

private:
    DwgIdTranslator& translator_;
};

void replaceReferences(AcDbKeptFields& fields, DwgIdTranslator& translator) {
    for (AcDbKeptReference& reference : fields.references) {
        translator.replace(reference.id);
    }
}

}  // namespace

DwgBlockCopier::DwgBlockCopier(AcDbDatabase& target, AcDbDatabase& source)
    : target_(target), source_(source) {
    findParts();
}

// Entities that stand in no block but belong to another entity: attributes, vertices. Parts have no
// parts of their own.
void DwgBlockCopier::findParts() {
    const auto entityAt = [](AcDbObjectId id) {
        const AcDbObject* object = AcDbDatabase::objectOf(id);
        return object != nullptr && object->isKindOf(AcDbEntity::desc()) ? object : nullptr;
    };
    for (AcDbStub& stub : source_.entries()) {
        if (stub.object && !stub.erased && stub.object->isKindOf(AcDbEntity::desc())) {
            const AcDbObject* owner = entityAt(stub.object->ownerId());
            if (owner != nullptr && entityAt(owner->ownerId()) == nullptr) {
                parts_[owner->objectId().stub()].emplace_back(&stub);
            }
        }
    }
}

Acad::ErrorStatus DwgBlockCopier::copyModelSpace(const char* blockName, AcDbObjectId& blockId) {
    const AcDbObject* space = AcDbDatabase::objectOf(source_.header().BLOCK_RECORD_MODEL_SPACE);
    const auto& source = static_cast<const AcDbBlockTableRecord&>(*space);
    blockId = addBlock(source, blockName);
    if (blockId.isNull()) {
        return Acad::eWasOpenForWrite;
    }
    BlockFields::setOrigin(*pending_.back().copy, source_.header().INSBASE);
    while (!pending_.empty()) {
        const Block block = pending_.back();
        pending_.pop_back();
        copyEntities(block);
    }
    return Acad::eOk;
}

void DwgBlockCopier::copyEntities(const Block& block) {
    std::vector<AcDbEntity*> copied;
    for (const AcDbObjectId id : block.source->entityIds()) {
        if (isLiving(id)) {
            auto* entity = static_cast<AcDbEntity*>(AcDbDatabase::objectOf(id));
            if (canCopy(*entity)) {
                copied.push_back(entity);
                announce(*entity);
            } else {
                ++leftOut_[static_cast<const AcDbKeptEntity&>(*entity).keptClass().name];
            }
        }
    }
    std::vector<AcDbObjectId>& entities = BlockFields::entities(*block.copy);
    for (AcDbEntity* entity : copied) {
        copyEntity(*entity, block.copy->objectId());
        const AcDbObjectId copy = counterparts_[entity->objectId().stub()];
        if (isLiving(copy)) {
            entities.push_back(copy);
        }
    }
}

// What an entity of an unknown class points to must have a counterpart.
bool DwgBlockCopier::canCopy(const AcDbEntity& entity) const {
    if (entity.isA() != AcDbKeptEntity::desc()) {
        return true;
    }
    const auto& references = static_cast<const AcDbKeptEntity&>(entity).keptFields().references;
    return std::all_of(references.begin(), references.end(), [this](const auto& reference) {
        const AcDbObject* object = AcDbDatabase::objectOf(reference.id);
        return reference.code != kHardPointer || object == nullptr ||
               object->isKindOf(AcDbEntity::desc()) ||
               (object->isKindOf(AcDbSymbolTableRecord::desc()) &&
                !kindOf(static_cast<const AcDbSymbolTableRecord&>(*object)).table.isNull());
    });
}

void DwgBlockCopier::announce(const AcDbEntity& entity) {
    const AcDbStub* stub = entity.objectId().stub();
    counterparts_[stub] = target_.idOfHandle(target_.header().HANDSEED);
    const auto parts = parts_.find(stub);
    if (parts != parts_.end()) {
        for (const AcDbObjectId part : parts->second) {
            announce(static_cast<const AcDbEntity&>(*AcDbDatabase::objectOf(part)));
        }
    }
}

void DwgBlockCopier::copyEntity(AcDbEntity& entity, AcDbObjectId owner) {
    std::unique_ptr<AcDbObject> copy;
    {
        const DwgReadAccess access(entity);
        copy = entity.clone();
    }
    if (copy == nullptr) {
        return;
    }
    copy->setOwnerId(owner);
    if (std::as_const(*copy).fileData().extendedDataBits > 0) {
        copy->fileData().extendedData.clear();
        copy->fileData().extendedDataBits = 0;
    }
    replaceReactors(*copy);
    replaceIds(*copy);
    const AcDbStub* stub = entity.objectId().stub();
    const AcDbObjectId id = counterparts_[stub];
    target_.placeObject(id, std::move(copy));
    const auto parts = parts_.find(stub);
    if (parts != parts_.end()) {
        for (const AcDbObjectId part : parts->second) {
            copyEntity(static_cast<AcDbEntity&>(*AcDbDatabase::objectOf(part)), id);
        }
    }
}

// Only objects copied with the entity hear of its changes.
void DwgBlockCopier::replaceReactors(AcDbObject& copy) const {
    AcDbObjectIdArray replaced;
    std::unordered_set<AcDbObjectId> known;
    for (const AcDbObjectId reactor : std::as_const(copy).persistentReactors()) {
        const auto found = counterparts_.find(reactor.stub());
        if (found != counterparts_.end() && known.insert(found->second).second) {
            replaced.append(found->second);
        }
    }
    copy.setPersistentReactors(std::move(replaced));
}

void DwgBlockCopier::replaceIds(AcDbObject& copy) {
    DwgIdTranslator translator([this](AcDbObjectId id) { return counterpart(id); });
    if (copy.isKindOf(AcDbEntity::desc())) {
        DwgFields<AcDbEntity>::fields(translator, static_cast<AcDbEntity&>(copy));
    }
    if (const DwgCodec* codec = FindCodec(copy)) {
        codec->replaceIds(translator, copy);
    } else if (copy.isA() == AcDbKeptEntity::desc()) {
        using Fields = DwgFields<AcDbKeptEntity>;
        auto& entity = static_cast<AcDbKeptEntity&>(copy);
        replaceReferences(Fields::fields(entity), translator);
        DwgEntityLinks links = Fields::links(entity);
        translator.softPointers(links.previous, links.next);
        Fields::setLinks(entity, links);
    } else {
        IdReplacingFiler filer(translator);
        copy.dwgOutFields(&filer);
        copy.dwgInFields(&filer);
        if (const auto unread = std::as_const(copy).fileData().unreadFields) {
            auto replaced = std::make_shared<AcDbKeptFields>(*unread);
            replaceReferences(*replaced, translator);
            copy.fileData().unreadFields = std::move(replaced);
        }
    }
}

AcDbObjectId DwgBlockCopier::counterpart(AcDbObjectId id) {
    const auto known = counterparts_.find(id.stub());
    if (known != counterparts_.end()) {
        return known->second;
    }
    const AcDbObject* object = AcDbDatabase::objectOf(id);
    if (object == nullptr) {
        return {};
    }
    if (object->isKindOf(AcDbPlaceHolder::desc())) {
        // A plot style, of which every drawing has one to fall back on.
        const AcDbObject* styles = AcDbDatabase::objectOf(target_.header().DICTIONARY_PLOTSTYLES);
        return styles != nullptr && styles->isKindOf(AcDbDictionaryWithDefault::desc())
                   ? static_cast<const AcDbDictionaryWithDefault*>(styles)->defaultId()
                   : AcDbObjectId::kNull;
    }
    if (object->isKindOf(AcDbBlockTableRecord::desc())) {
        return blockCounterpart(static_cast<const AcDbBlockTableRecord&>(*object));
    }
    return object->isKindOf(AcDbSymbolTableRecord::desc())
               ? recordCounterpart(static_cast<const AcDbSymbolTableRecord&>(*object))
               : AcDbObjectId::kNull;
}

DwgBlockCopier::RecordKind DwgBlockCopier::kindOf(const AcDbSymbolTableRecord& record) const {
    const HeaderVariables& header = target_.header();
    const std::pair<const AcRxClass*, AcDbObjectId> tables[] = {
        {AcDbTextStyleTableRecord::desc(), header.STYLE_CONTROL_OBJECT},
        {AcDbLinetypeTableRecord::desc(), header.LTYPE_CONTROL_OBJECT},
        {AcDbLayerTableRecord::desc(), header.LAYER_CONTROL_OBJECT},
        {AcDbDimStyleTableRecord::desc(), header.DIMSTYLE_CONTROL_OBJECT},
        {AcDbBlockTableRecord::desc(), header.BLOCK_CONTROL_OBJECT},
    };
    const auto found = std::find_if(std::begin(tables), std::end(tables),
                                    [&](const auto& table) { return record.isA() == table.first; });
    return {found - std::begin(tables),
            found == std::end(tables) ? AcDbObjectId::kNull : found->second};
}

AcDbObjectId DwgBlockCopier::recordCounterpart(const AcDbSymbolTableRecord& record) {
    const RecordKind kind = kindOf(record);
    AcDbSymbolTable* table = nullptr;
    // A file can make records lean on each other in a circle, or in a long row.
    if (kind.rank >= leaning_ || acdbOpenObject(table, kind.table, AcDb::kForRead) != Acad::eOk) {
        return {};
    }
    AcDbObjectId id;
    table->getAt(record.name(), id);
    table->close();
    if (id.isNull()) {
        std::unique_ptr<AcDbObject> copy = record.clone();
        replaceReactors(*copy);
        const auto leaning = std::exchange(leaning_, kind.rank);
        replaceIds(*copy);
        leaning_ = leaning;
        id = addRecord(kind.table, std::unique_ptr<AcDbSymbolTableRecord>(
                                       static_cast<AcDbSymbolTableRecord*>(copy.release())));
    }
    return counterparts_[record.objectId().stub()] = id;
}

AcDbObjectId DwgBlockCopier::addRecord(AcDbObjectId tableId,
                                       std::unique_ptr<AcDbSymbolTableRecord> record) {
    AcDbSymbolTable* table = nullptr;
    AcDbObjectId id;
    if (acdbOpenObject(table, tableId, AcDb::kForWrite) != Acad::eOk) {
        return id;
    }
    if (table->add(id, record.get()) == Acad::eOk) {
        record.release()->close();
    }
    table->close();
    return id;
}

AcDbObjectId DwgBlockCopier::blockCounterpart(const AcDbBlockTableRecord& block) {
    AcDbBlockTable* table = nullptr;
    AcDbObjectId existing;
    if (!block.isAnonymous() && target_.getSymbolTable(table, AcDb::kForRead) == Acad::eOk) {
        table->getAt(block.name(), existing);
        table->close();
    }
    if (!existing.isNull()) {
        return counterparts_[block.objectId().stub()] = existing;
    }
    // Blocks without a name of their own are told apart by a number.
    return addBlock(block, block.isAnonymous()
                               ? block.name() + std::to_string(target_.header().HANDSEED)
                               : std::string(block.name()));
}

AcDbObjectId DwgBlockCopier::addBlock(const AcDbBlockTableRecord& source, const std::string& name) {
    auto record = BlockFields::copyWithoutContent(source);
    record->setName(name.c_str());
    AcDbBlockTableRecord* copy = record.get();
    const AcDbObjectId id = addRecord(target_.header().BLOCK_CONTROL_OBJECT, std::move(record));
    counterparts_[source.objectId().stub()] = id;
    if (!id.isNull()) {
        pending_.push_back({&source, copy});
    }
    return id;
}
