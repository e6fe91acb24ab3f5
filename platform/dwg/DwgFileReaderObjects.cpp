// The objects of a drawing file.
#include <unordered_map>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/dwg/DwgCustomObjects.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/crc.h"

namespace {

std::string nameOf(AcDbHandle handle) {
    char text[32];
    std::snprintf(text, sizeof text, "object %llX", static_cast<unsigned long long>(handle));
    return text;
}

DwgFault objectFault(AcDbHandle handle, const char* what) {
    return DwgFault(nameOf(handle) + " " + what);
}

}  // namespace

void DwgFileReader::readObjects() {
    for (const dwg::MapEntry& entry : map_) {
        try {
            readObject(entry.handle, entry.position);
        } catch (const DwgFault& fault) {
            loseObject(entry.handle, fault.what());
        }
    }
    if (!damage_.objects.empty()) {
        loseEntitiesOfLost();
    }
}

// Counts as erased from now on, so that lists and references leave it out when they are written.
void DwgFileReader::loseObject(AcDbHandle handle, const std::string& reason) {
    AcDbStub& stub = *database_.idOfHandle(handle).stub();
    stub.erased = true;
    stub.object.reset();
    damage_.objects.push_back(handle);
    damage_.note(reason);
}

void DwgFileReader::loseEntitiesOfLost() {
    std::unordered_map<const AcDbStub*, std::vector<AcDbHandle>> owned;
    for (const AcDbStub& stub : database_.entries()) {
        if (stub.object != nullptr && stub.object->isKindOf(AcDbEntity::desc())) {
            owned[stub.object->ownerId().stub()].push_back(stub.handle);
        }
    }
    // The list grows while it is gone through.
    for (std::size_t i = 0; i < damage_.objects.size(); ++i) {
        const AcDbHandle lost = damage_.objects[i];
        const auto found = owned.find(database_.idOfHandle(lost).stub());
        if (found != owned.end()) {
            for (const AcDbHandle handle : found->second) {
                loseObject(handle, nameOf(handle) + " belongs to " + nameOf(lost));
            }
        }
    }
}

DwgFileReader::ObjectSource DwgFileReader::sourceOf(AcDbHandle handle, std::size_t position) {
    const dwg::ObjectFrame frame = dwg::FrameAt(file_, position);
    if (!frame.fits || position < dwg::kLocatorsPosition) {
        throw objectFault(handle, "is not within the file");
    }
    const std::uint8_t* bytes = dwg::BytesOf(file_) + frame.contentPosition;
    const std::size_t end = frame.contentPosition + frame.contentSize;
    ObjectSource source;
    source.data = DwgBitReader(bytes, 0, 8 * frame.contentSize);
    source.type = static_cast<std::uint16_t>(source.data.bitShort());
    const std::size_t valueBits = source.data.rawLong();
    source.handle = source.data.handle().value;
    if (source.data.failed() || source.handle != handle) {
        throw objectFault(handle, "stands elsewhere than the object map says");
    }
    // Objects within each other would take time and memory that no file has the size for.
    objectBytes_ += end - position;
    if (objectBytes_ > file_.size()) {
        throw objectFault(handle, "stands within others");
    }
    if (dwg::Crc(dwg::BytesOf(file_) + position, end - position) != dwg::ShortAt(file_, end)) {
        throw objectFault(handle, "has a wrong check sum");
    }
    if (valueBits < source.data.bitPosition() || valueBits > 8 * frame.contentSize) {
        throw objectFault(handle, "has a wrong size");
    }
    source.data = DwgBitReader(bytes, source.data.bitPosition(), valueBits);
    source.handles = DwgBitReader(bytes, valueBits, 8 * frame.contentSize);
    return source;
}

// Null for an object of a built-in class, and where there is none.
DwgClassTable::ClassPtr DwgFileReader::classAt(std::size_t position) const {
    const dwg::ObjectFrame frame = dwg::FrameAt(file_, position);
    if (!frame.fits) {
        return nullptr;
    }
    DwgBitReader bits(dwg::BytesOf(file_) + frame.contentPosition, 0, 8 * frame.contentSize);
    return state_.classes.at(static_cast<std::uint16_t>(bits.bitShort()));
}

void DwgFileReader::readObject(AcDbHandle handle, std::size_t position) {
    const ObjectSource source = sourceOf(handle, position);
    const DwgClassTable::ClassPtr fileClass = state_.classes.at(source.type);
    if (fileClass == nullptr && source.type >= DwgClassTable::kFirstNumber) {
        throw objectFault(handle, "is of a class that the file does not list");
    }
    const DwgCodec* codec =
        fileClass ? FindCodec(std::string_view(fileClass->dxfName)) : FindCodec(source.type);
    std::unique_ptr<AcDbObject> object;
    if (codec != nullptr) {
        object = readKnown(*codec, source);
    } else if (fileClass) {
        object = readCustom(fileClass, source);
    }
    if (object == nullptr) {
        object = readKept(source);
    }
    const AcDbObjectId id = database_.idOfHandle(handle);
    id.stub()->filePosition = static_cast<std::uint32_t>(position);
    database_.placeObject(id, std::move(object));
}

// Null for an object whose fields cannot be told again as they are.
std::unique_ptr<AcDbObject> DwgFileReader::readKnown(const DwgCodec& codec, ObjectSource source) {
    std::unique_ptr<AcDbObject> object = codec.make();
    DwgObjectReader reader(source.data, source.handles, database_, state_, source.handle);
    const std::size_t chains = state_.chains.size();
    reader.extendedData(*object);
    std::vector<std::uint8_t> graphics;
    DwgEntityLinks links;
    if (codec.isEntity) {
        reader.entityHead(static_cast<AcDbEntity&>(*object), graphics, links);
    } else {
        reader.objectHead(*object);
    }
    codec.read(reader, *object);
    if (!reader.exact() || !reader.atEnd() || !graphics.empty()) {
        state_.chains.resize(chains);
        return nullptr;
    }
    if (codec.isEntity) {
        noteLinks(source.handle, links);
    }
    return object;
}

// Null when the class is not registered.
std::unique_ptr<AcDbObject> DwgFileReader::readCustom(const DwgClassTable::ClassPtr& fileClass,
                                                      ObjectSource source) {
    std::unique_ptr<AcDbObject> object = MakeCustomObject(*fileClass);
    if (object == nullptr) {
        return nullptr;
    }
    DwgObjectReader reader(source.data, source.handles, database_, state_, source.handle);
    reader.extendedData(*object);
    if (fileClass->isEntity) {
        std::vector<std::uint8_t> graphics;  // made anew when the entity is written
        DwgEntityLinks links;
        reader.entityHead(static_cast<AcDbEntity&>(*object), graphics, links);
        noteLinks(source.handle, links);
    } else {
        reader.objectHead(*object);
    }
    if (!reader.exact()) {
        throw objectFault(source.handle, "cannot be read");
    }
    ReadCustomFields(reader, *object);
    return object;
}

std::unique_ptr<AcDbObject> DwgFileReader::readKept(ObjectSource source) {
    AcDbKeptClass keptClass;
    keptClass.record = state_.classes.at(source.type);
    keptClass.type = keptClass.record ? 0 : source.type;
    keptClass.name = keptClass.record ? keptClass.record->className : ClassNameOfType(source.type);
    DwgObjectReader reader(source.data, source.handles, database_, state_, source.handle);
    std::unique_ptr<AcDbObject> object;
    if (keptClass.record ? keptClass.record->isEntity : IsEntityType(source.type)) {
        object = readKeptEntity(reader, std::move(keptClass));
    } else {
        auto kept = std::make_unique<AcDbKeptObject>();
        reader.extendedData(*kept);
        reader.objectHead(*kept);
        DwgFields<AcDbKeptObject>::set(*kept, std::move(keptClass), reader.remainingFields());
        object = std::move(kept);
    }
    if (!reader.exact()) {
        throw objectFault(source.handle, "cannot be read");
    }
    return object;
}

std::unique_ptr<AcDbObject> DwgFileReader::readKeptEntity(DwgObjectReader& reader,
                                                          AcDbKeptClass keptClass) {
    using Fields = DwgFields<AcDbKeptEntity>;
    auto entity = std::make_unique<AcDbKeptEntity>();
    std::vector<std::uint8_t> graphics;
    DwgEntityLinks links;
    reader.extendedData(*entity);
    reader.entityHead(*entity, graphics, links);
    noteLinks(reader.holder(), links);
    Fields::setLinks(*entity, links);
    Fields::set(*entity, std::move(keptClass), reader.remainingFields(), std::move(graphics));
    return entity;
}

// The links are found again by the entry's index.
void DwgFileReader::noteLinks(AcDbHandle handle, const DwgEntityLinks& links) {
    database_.idOfHandle(handle).stub()->index = static_cast<std::uint32_t>(state_.links.size());
    state_.links.push_back(links);
}
