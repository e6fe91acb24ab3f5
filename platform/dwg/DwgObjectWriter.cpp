#include "platform/dwg/DwgObjectWriter.h"

#include <algorithm>
#include <iterator>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"
#include "platform/dwg/codec/entity_fields.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/file_layout.h"
#include "platform/gi/ProxyGraphicsRecord.h"

namespace {

bool isLiving(AcDbObjectId id) {
    return AcDbDatabase::objectOf(id) != nullptr && !id.isErased();
}

}  // namespace

std::uint16_t DwgObjectWriter::write(AcDbObject& object, std::string& file) {
    holder_ = object.objectId().handle();
    if (const DwgCodec* codec = FindCodec(object)) {
        begin(codec->fileClass ? classes_.numberOf(codec->fileClass) : codec->type, object);
        if (codec->isEntity) {
            entityHead(static_cast<const AcDbEntity&>(object), {});
        } else {
            objectHead(object);
        }
        codec->write(*this, object);
    } else if (object.isA() == AcDbKeptEntity::desc() || object.isA() == AcDbKeptObject::desc()) {
        keptObject(object);
    } else {
        customObject(object);
    }
    return finish(file);
}

void DwgObjectWriter::begin(std::uint16_t type, const AcDbObject& object) {
    data().clear();
    handles().clear();
    data().bitShort(static_cast<std::int16_t>(type));
    sizePosition_ = data().bitPosition();
    data().rawLong(0);
    data().handle(0, holder_);
    const AcDbObjectFileData& fileData = object.fileData();
    if (fileData.extendedDataBits > 0) {
        data().bitString(fileData.extendedData.data(), fileData.extendedDataBits);
    } else {
        data().bitShort(0);
    }
}

void DwgObjectWriter::objectHead(const AcDbObject& object) {
    reference(4, object.ownerId());
    data().bitLong(reactorReferences(object));
}

void DwgObjectWriter::entityHead(const AcDbEntity& entity, std::span<const std::uint8_t> graphics) {
    enum Mode : std::uint8_t { kOwnerNamed = 0, kPaperSpace = 1, kModelSpace = 2 };
    data().bit(!graphics.empty());
    if (!graphics.empty()) {
        data().rawLong(static_cast<std::uint32_t>(graphics.size()));
        data().bytes(graphics);
    }
    const HeaderVariables& header = database_.header();
    const AcDbObjectId owner = entity.ownerId();
    const Mode mode = owner == header.BLOCK_RECORD_MODEL_SPACE   ? kModelSpace
                      : owner == header.BLOCK_RECORD_PAPER_SPACE ? kPaperSpace
                                                                 : kOwnerNamed;
    data().bits(mode, 2);
    if (mode == kOwnerNamed) {
        reference(4, owner);
    }
    data().bitLong(reactorReferences(entity));
    entityLinks(entity);
    DwgFields<AcDbEntity>::fields(*this, entity);
}

// Neighbours with the next lower and the next higher handle need not be named.
void DwgObjectWriter::entityLinks(const AcDbEntity& entity) {
    DwgEntityLinks links;
    if (const DwgEntityLinks* inBlock = plan_.linksOf(*entity.objectId().stub())) {
        links = *inBlock;
    } else if (entity.isA() == AcDbKeptEntity::desc()) {
        links = DwgFields<AcDbKeptEntity>::links(static_cast<const AcDbKeptEntity&>(entity));
    }
    const bool adjacent =
        links.previous.handle() == holder_ - 1 && links.next.handle() == holder_ + 1;
    data().bit(adjacent);
    if (!adjacent) {
        softPointers(links.previous, links.next);
    }
}

int DwgObjectWriter::reactorReferences(const AcDbObject& object) {
    int count = 0;
    for (const AcDbObjectId reactor : object.persistentReactors()) {
        if (!reactor.isErased()) {
            reference(4, reactor);
            ++count;
        }
    }
    hardOwners(object.fileData().extensionDictionary);
    return count;
}

void DwgObjectWriter::keptObject(const AcDbObject& object) {
    const bool isEntity = object.isA() == AcDbKeptEntity::desc();
    const AcDbKeptClass& keptClass = isEntity
                                         ? static_cast<const AcDbKeptEntity&>(object).keptClass()
                                         : static_cast<const AcDbKeptObject&>(object).keptClass();
    begin(keptClass.record ? classes_.numberOf(keptClass.record) : keptClass.type, object);
    if (isEntity) {
        const auto& entity = static_cast<const AcDbKeptEntity&>(object);
        entityHead(entity, entity.graphics());
        keptFields(entity.keptFields());
    } else {
        objectHead(object);
        keptFields(static_cast<const AcDbKeptObject&>(object).keptFields());
    }
}

void DwgObjectWriter::customObject(AcDbObject& object) {
    const DwgReadAccess access(object);
    begin(classes_.numberOf(FileClassOf(object)), object);
    if (object.isKindOf(AcDbEntity::desc())) {
        auto& entity = static_cast<AcDbEntity&>(object);
        const std::vector<std::uint8_t> graphics = ProxyGraphicsOf(entity);
        noteExtents(entity, graphics);
        entityHead(entity, graphics);
    } else {
        objectHead(object);
    }
    WriteCustomFields(*this, object);
}

// The box is the first record of the graphics: the entity need not be drawn once more.
void DwgObjectWriter::noteExtents(const AcDbEntity& entity,
                                  std::span<const std::uint8_t> graphics) {
    constexpr std::size_t kHeads = 16;  // of the stream and of the record
    if (graphics.size() > kHeads &&
        entity.ownerId() == database_.header().BLOCK_RECORD_MODEL_SPACE) {
        ProxyGraphicsRecord box(graphics.subspan(kHeads));
        extentsOfModules_.addPoint(box.point());
        extentsOfModules_.addPoint(box.point());
    }
}

void DwgObjectWriter::keptFields(const AcDbKeptFields& fields) {
    data().bitString(fields.bits.data(), fields.bitCount);
    for (const AcDbKeptReference& kept : fields.references) {
        const AcDbHandle handle = kept.id.handle();
        // The relative forms stay as they were as long as they lead to the same object.
        if (kept.code == 6 && handle == holder_ + 1) {
            handles().handle(6, 0);
        } else if (kept.code == 8 && handle == holder_ - 1) {
            handles().handle(8, 0);
        } else if (kept.code == 10 && handle > holder_) {
            handles().handle(10, handle - holder_);
        } else if (kept.code == 12 && handle != 0 && handle < holder_) {
            handles().handle(12, holder_ - handle);
        } else {
            handles().handle(kept.code > 5 ? 4 : kept.code, handle);
        }
    }
}

std::uint16_t DwgObjectWriter::finish(std::string& file) {
    const std::size_t valueBits = data().bitPosition();
    const std::size_t referenceBits = handles().bitPosition();
    data().bitString(handles().view().data(), referenceBits);
    data().amendRawLong(sizePosition_, static_cast<std::uint32_t>(valueBits));
    const std::span<const std::uint8_t> bytes = data().view();

    const std::size_t start = file.size();
    // The size comes in words of 15 bits.
    std::size_t size = bytes.size();
    for (; size > 0x7FFF; size >>= 15U) {
        dwg::AppendShort(file, static_cast<std::uint16_t>(size | 0x8000U));
    }
    dwg::AppendShort(file, static_cast<std::uint16_t>(size));
    file.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const std::uint16_t crc = dwg::Crc(dwg::BytesOf(file) + start, file.size() - start);
    dwg::AppendShort(file, crc);
    return crc;
}

void DwgObjectWriter::linetype(AcDbObjectId linetype) {
    enum Source : std::uint8_t { kByLayer = 0, kByBlock = 1, kContinuous = 2, kOwn = 3 };
    const HeaderVariables& header = database_.header();
    const Source source = linetype.isNull() || linetype == header.LTYPE_BYLAYER ? kByLayer
                          : linetype == header.LTYPE_BYBLOCK                    ? kByBlock
                          : linetype == header.LTYPE_CONTINUOUS                 ? kContinuous
                                                                                : kOwn;
    data().bits(source, 2);
    if (source == kOwn) {
        hardPointers(linetype);
    }
}

void DwgObjectWriter::plotStyle(std::uint8_t source, AcDbObjectId style) {
    data().bits(source, 2);
    if (source == 3) {
        hardPointers(style);
    }
}

void DwgObjectWriter::records(const std::vector<AcDbObjectId>& records) {
    const auto isListed = [](AcDbObjectId id) { return isLiving(id); };
    data().bitLong(
        static_cast<std::int32_t>(std::count_if(records.begin(), records.end(), isListed)));
    for (const AcDbObjectId id : records) {
        if (isListed(id)) {
            softOwners(id);
        }
    }
}

void DwgObjectWriter::recordsAndTwo(const std::vector<AcDbObjectId>& all, AcDbObjectId first,
                                    AcDbObjectId second) {
    std::vector<AcDbObjectId> others;
    std::copy_if(all.begin(), all.end(), std::back_inserter(others),
                 [=](AcDbObjectId id) { return id != first && id != second; });
    records(others);
    hardOwners(first, second);
}

void DwgObjectWriter::blockRecords(const std::vector<AcDbObjectId>& all) {
    const HeaderVariables& header = database_.header();
    recordsAndTwo(all, header.BLOCK_RECORD_MODEL_SPACE, header.BLOCK_RECORD_PAPER_SPACE);
}

void DwgObjectWriter::linetypeRecords(const std::vector<AcDbObjectId>& all) {
    const HeaderVariables& header = database_.header();
    recordsAndTwo(all, header.LTYPE_BYBLOCK, header.LTYPE_BYLAYER);
}

void DwgObjectWriter::blockEntities(const AcDbBlockTableRecord& block,
                                    const std::vector<AcDbObjectId>& /*entities*/) {
    const DwgEntityLinks ends = plan_.endsOf(block);
    softPointers(ends.previous, ends.next);
}

void DwgObjectWriter::blockReferenceCount(const AcDbBlockTableRecord& block,
                                          const std::vector<AcDbObjectId>& known) {
    const auto byStub = [](AcDbObjectId a, AcDbObjectId b) { return a.stub() < b.stub(); };
    blockReferences_.clear();
    std::copy_if(known.begin(), known.end(), std::back_inserter(blockReferences_), isLiving);
    std::vector<AcDbObjectId> listed = blockReferences_;
    std::sort(listed.begin(), listed.end(), byStub);
    for (const AcDbObjectId id : plan_.referencesTo(block)) {
        if (!std::binary_search(listed.begin(), listed.end(), id, byStub)) {
            blockReferences_.push_back(id);
        }
    }
    for (std::size_t i = 0; i < blockReferences_.size(); ++i) {
        data().rawChar(1);
    }
    data().rawChar(0);
}

void DwgObjectWriter::blockReferences(const std::vector<AcDbObjectId>& /*known*/) {
    for (const AcDbObjectId id : blockReferences_) {
        softPointers(id);
    }
}
