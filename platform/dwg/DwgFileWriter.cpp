#include "platform/dwg/DwgFileWriter.h"

#include <algorithm>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgObjectWriter.h"
#include "platform/dwg/content_guid.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/space_extents.h"

namespace {

// A drawing that was made here has nothing left of a file.
const DwgFileRemains& remainsOf(const AcDbDatabase& database) {
    static const DwgFileRemains none;
    const DwgFileRemains* remains = database.fileRemains();
    return remains != nullptr ? *remains : none;
}

// Lists leave erased objects out although nobody has touched the list itself.
bool listsErased(const AcDbObject& object) {
    if (object.isKindOf(AcDbSymbolTable::desc())) {
        const auto& records = static_cast<const AcDbSymbolTable&>(object).records();
        return std::any_of(records.begin(), records.end(),
                           [](AcDbObjectId id) { return id.isErased(); });
    }
    if (object.isKindOf(AcDbDictionary::desc())) {
        const auto& entries = static_cast<const AcDbDictionary&>(object).entries();
        return std::any_of(entries.begin(), entries.end(),
                           [](const auto& entry) { return entry.second.isErased(); });
    }
    return false;
}

}  // namespace

DwgFileWriter::DwgFileWriter(AcDbDatabase& database)
    : database_(database),
      remains_(remainsOf(database)),
      plan_(database),
      classes_(remains_.classes) {
    database_.header().TDUPDATE = CurrentDrawingDay();
}

std::string DwgFileWriter::write() {
    writeObjects();
    nameVersion();
    appendHead();
    appendAuxiliaryHeader();
    appendPreview();
    appendVariables();
    appendClasses();
    appendObjects();
    appendFreeSpace();
    appendSecondHeader();
    appendUnknownSections();
    appendTemplate();
    finishHead();
    return std::move(file_);
}

void DwgFileWriter::writeObjects() {
    DwgObjectWriter writer(database_, plan_, classes_);
    map_.reserve(database_.entries().size());
    constexpr std::size_t kUsualObjectSize = 80;
    constexpr std::size_t kBesideObjects = 8192;
    objects_.reserve(std::max(remains_.file.size(), kUsualObjectSize * map_.capacity()) +
                     kBesideObjects);
    // In the order of their handles, however the drawing came to be.
    std::vector<AcDbStub*> written;
    written.reserve(database_.entries().size());
    for (AcDbStub& stub : database_.entries()) {
        if (plan_.isWritten(stub)) {
            written.push_back(&stub);
        } else {
            changed_ = changed_ || stub.filePosition != 0;
        }
    }
    std::sort(written.begin(), written.end(),
              [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    for (const AcDbStub* stub : written) {
        map_.push_back({stub->handle, static_cast<std::uint32_t>(objects_.size())});
        if (isUntouched(*stub)) {
            mixIntoContentKey(copyObject(*stub));
        } else {
            const std::size_t start = objects_.size();
            mixIntoContentKey(writer.write(*stub->object, objects_));
            changed_ = changed_ || !hasBitsOfFile(*stub, start);
        }
    }
    if (changed_) {
        noteExtents(writer.extentsOfModules());
    }
}

bool DwgFileWriter::hasBitsOfFile(const AcDbStub& stub, std::size_t start) const {
    const std::string_view old = std::string_view(remains_.file).substr(stub.filePosition);
    const std::string_view now = std::string_view(objects_).substr(start);
    return stub.filePosition != 0 && old.starts_with(now);
}

void DwgFileWriter::noteExtents(const AcDbExtents& ofModules) {
    const AcDbExtents box = ModelSpaceExtents(database_, ofModules);
    HeaderVariables& header = database_.header();
    const HeaderVariables unset;
    header.EXTMIN = box.isEmpty() ? unset.EXTMIN : box.minPoint();
    header.EXTMAX = box.isEmpty() ? unset.EXTMAX : box.maxPoint();
}

bool DwgFileWriter::isUntouched(const AcDbStub& stub) const {
    const AcDbObject& object = *stub.object;
    if (stub.filePosition == 0 || object.isModified() || !plan_.hasLinksOfFile(stub)) {
        return false;
    }
    if (object.isA() == AcDbBlockTableRecord::desc()) {
        return plan_.hasListsOfFile(static_cast<const AcDbBlockTableRecord&>(object));
    }
    // Objects of modules file what they hold now.
    const bool isKept =
        object.isA() == AcDbKeptEntity::desc() || object.isA() == AcDbKeptObject::desc();
    return (isKept || FindCodec(object) != nullptr) && !listsErased(object);
}

std::uint16_t DwgFileWriter::copyObject(const AcDbStub& stub) {
    const dwg::ObjectFrame frame = dwg::FrameAt(remains_.file, stub.filePosition);
    const std::size_t end = frame.contentPosition + frame.contentSize;
    objects_.append(remains_.file, stub.filePosition, end + dwg::kCrcSize - stub.filePosition);
    return dwg::ShortAt(remains_.file, end);
}

void DwgFileWriter::mixIntoContentKey(std::uint16_t crc) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    contentKey_ = (contentKey_ ^ crc) * kFactor;
    contentKey_ ^= contentKey_ >> 29U;
}

// The names that tell drawings and their versions apart follow from the content, so that the same
// drawing makes the same file. A drawing whose objects are those of its file is the same version.
void DwgFileWriter::nameVersion() {
    HeaderVariables& header = database_.header();
    if (changed_ || header.VERSIONGUID.empty()) {
        header.VERSIONGUID = dwg::GuidOf(contentKey_);
    }
    if (header.FINGERPRINTGUID.empty()) {
        header.FINGERPRINTGUID = header.VERSIONGUID;
    }
}

void DwgFileWriter::appendUnknownSections() {
    for (const DwgFileRemains::Section& section : remains_.unknownSections) {
        beginSection(section.number);
        file_ += section.bytes;
        endSection();
    }
}

void DwgFileWriter::appendObjects() {
    objectsStart_ = static_cast<std::uint32_t>(file_.size());
    // They move on a little within their own memory: there is never a second copy of them.
    objects_.insert(0, file_);
    file_ = std::move(objects_);
    for (dwg::MapEntry& entry : map_) {
        entry.position += objectsStart_;
    }
    beginSection(dwg::kObjectMap);
    dwg::AppendObjectMap(file_, map_);
    endSection();
}

void DwgFileWriter::beginSection(std::uint8_t number) {
    sections_.push_back({number, static_cast<std::uint32_t>(file_.size()), 0});
}

void DwgFileWriter::endSection() {
    sections_.back().size = static_cast<std::uint32_t>(file_.size()) - sections_.back().address;
}

void DwgFileWriter::appendFramed(const dwg::Sentinel& begin,
                                 std::span<const std::uint8_t> content) {
    file_ += dwg::TextOf(begin);
    const std::size_t start = file_.size();
    dwg::AppendLong(file_, static_cast<std::uint32_t>(content.size()));
    file_.append(reinterpret_cast<const char*>(content.data()), content.size());
    dwg::AppendShort(file_, dwg::Crc(dwg::BytesOf(file_) + start, file_.size() - start));
    file_ += dwg::TextOf(dwg::EndOf(begin));
}
