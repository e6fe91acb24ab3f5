#include "platform/dwg/DwgFileReader.h"

#include <algorithm>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/second_header.h"

namespace {

constexpr std::string_view kVersionPrefix = "AC";
constexpr std::size_t kVersionLength = 6;

}  // namespace

DwgFileReader::DwgFileReader(AcDbDatabase& database, std::string file)
    : database_(database), remains_(std::make_shared<DwgFileRemains>()), file_(remains_->file) {
    remains_->file = std::move(file);
}

void DwgFileReader::read() {
    readHead();
    readObjectMap();
    readAuxiliaryHeader();
    attempt([this] { readPreview(); });
    readVariables();
    readClasses();
    attempt([this] { readTemplate(); });
    readObjects();
    raiseHandleSeed();
    requireFoundations();
    linkBlocks();
    attempt([this] { checkTail(); });
}

void DwgFileReader::readObjectsOf(std::string_view className) {
    readHead();
    readVariables();
    readClasses();
    for (const dwg::MapEntry& entry : dwg::ReadObjectMap(section(dwg::kObjectMap))) {
        const DwgClassTable::ClassPtr fileClass = classAt(entry.position);
        if (fileClass && fileClass->className == className) {
            readObject(entry.handle, entry.position);
        }
    }
}

// The seed of a damaged file may lie below handles that are taken, or so high that none are left.
void DwgFileReader::raiseHandleSeed() {
    AcDbHandle& seed = database_.header().HANDSEED;
    seed = seed > AcDbDatabase::kHighestHandle ? 1 : seed;
    for (const AcDbStub& stub : database_.entries()) {
        if (stub.handle >= seed && stub.handle < AcDbDatabase::kHighestHandle) {
            seed = stub.handle + 1;
        }
    }
}

template <class Step>
void DwgFileReader::attempt(Step step) {
    try {
        step();
    } catch (const DwgFault& fault) {
        damage_.note(fault.what());
    }
}

void DwgFileReader::checkTail() {
    end_ = std::max(end_, dwg::FindEndOfSecondHeader(file_, mapEnd()));
    if (file_.size() > end_) {
        throw DwgFault(std::to_string(file_.size() - end_) +
                       " bytes follow the end of the drawing");
    }
}

void DwgFileReader::checkVersion() const {
    const std::string_view version = std::string_view(file_).substr(0, kVersionLength);
    const auto isNumber = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    if (version.size() < kVersionLength || !version.starts_with(kVersionPrefix) ||
        !std::all_of(version.begin() + kVersionPrefix.size(), version.end(), isNumber)) {
        throw DwgFault(Acad::eNotADrawing, "the file is not a drawing");
    }
    if (version != dwg::kVersion) {
        throw DwgFault(Acad::eDwgVersionRefused, "the drawing is of version " +
                                                     std::string(version) + ", only " +
                                                     std::string(dwg::kVersion) + " is read");
    }
    if (file_.size() > UINT32_MAX) {
        throw DwgFault("the file is larger than a drawing can be");
    }
}

void DwgFileReader::readHead() {
    checkVersion();
    bytesAt(0, dwg::kLocatorsPosition, "head");
    const std::size_t count = dwg::LongAt(file_, dwg::kSectionCountPosition);
    constexpr std::size_t kMostSections = 100;
    if (count > kMostSections) {
        throw DwgFault("the head has " + std::to_string(count) + " sections");
    }
    const std::size_t crcPosition = dwg::kLocatorsPosition + count * dwg::kLocatorSize;
    const std::size_t markPosition = crcPosition + dwg::kCrcSize;
    bytesAt(0, markPosition + dwg::kHeadEnd.size(), "head");
    if (dwg::Crc(dwg::BytesOf(file_), crcPosition) != dwg::ShortAt(file_, crcPosition)) {
        throw DwgFault("the head has a wrong check sum");
    }
    if (file_.compare(markPosition, dwg::kHeadEnd.size(), dwg::TextOf(dwg::kHeadEnd)) != 0) {
        throw DwgFault("the head does not end with its mark");
    }
    const std::uint8_t* bytes = dwg::BytesOf(file_);
    remains_->writer = {bytes[dwg::kMaintenancePosition], bytes[dwg::kProgramPosition],
                        bytes[dwg::kProgramPosition + 1]};
    database_.header().DWGCODEPAGE =
        static_cast<Adesk::Int16>(dwg::ShortAt(file_, dwg::kCodePagePosition));
    for (std::size_t i = 0; i < count; ++i) {
        readLocator(dwg::kLocatorsPosition + i * dwg::kLocatorSize);
    }
}

void DwgFileReader::readLocator(std::size_t position) {
    const dwg::SectionLocator located{dwg::BytesOf(file_)[position],
                                      dwg::LongAt(file_, position + 1),
                                      dwg::LongAt(file_, position + 5)};
    const std::string_view content = bytesAt(located.address, located.size, "sections");
    end_ = std::max<std::size_t>(end_, std::size_t{located.address} + located.size);
    sections_.push_back(located);
    if (located.number >= dwg::kKnownSections) {
        remains_->unknownSections.push_back({located.number, std::string(content)});
    }
}

std::string_view DwgFileReader::bytesAt(std::size_t position, std::size_t size,
                                        const char* name) const {
    if (position > file_.size() || size > file_.size() - position) {
        throw DwgFault(std::string("the file ends within its ") + name);
    }
    return std::string_view(file_).substr(position, size);
}

std::string_view DwgFileReader::section(std::uint8_t number) const {
    const auto found = std::find_if(sections_.begin(), sections_.end(),
                                    [=](const auto& s) { return s.number == number; });
    return found == sections_.end() ? std::string_view()
                                    : std::string_view(file_).substr(found->address, found->size);
}

std::string_view DwgFileReader::framed(std::uint8_t number, const dwg::Sentinel& begin,
                                       const char* name) const {
    constexpr std::size_t kMark = std::tuple_size_v<dwg::Sentinel>;
    constexpr std::size_t kSize = 4;
    constexpr std::size_t kFrame = 2 * kMark + kSize + dwg::kCrcSize;
    const std::string_view whole = section(number);
    const auto fault = [name](const char* what) {
        return DwgFault(std::string("the section of the ") + name + what);
    };
    if (whole.size() < kFrame || dwg::LongAt(whole, kMark) != whole.size() - kFrame) {
        throw fault(" has a wrong size");
    }
    if (!whole.starts_with(dwg::TextOf(begin)) ||
        !whole.ends_with(dwg::TextOf(dwg::EndOf(begin)))) {
        throw fault(" has no marks around it");
    }
    const std::size_t crcPosition = whole.size() - kMark - dwg::kCrcSize;
    if (dwg::Crc(dwg::BytesOf(whole) + kMark, crcPosition - kMark) !=
        dwg::ShortAt(whole, crcPosition)) {
        throw fault(" has a wrong check sum");
    }
    return whole.substr(kMark + kSize, whole.size() - kFrame);
}

void DwgFileReader::readAuxiliaryHeader() {
    remains_->auxiliaryHeader = section(dwg::kAuxiliaryHeader);
}

void DwgFileReader::readPreview() {
    constexpr std::size_t kMark = std::tuple_size_v<dwg::Sentinel>;
    constexpr std::size_t kSize = 4;
    const std::size_t position = dwg::LongAt(file_, dwg::kPreviewPosition);
    if (position == 0) {
        return;
    }
    const std::string_view mark = bytesAt(position, kMark + kSize, "preview");
    const std::size_t size = dwg::LongAt(mark, kMark);
    const std::string_view whole = bytesAt(position, 2 * kMark + kSize + size, "preview");
    if (!whole.starts_with(dwg::TextOf(dwg::kPreviewBegin)) ||
        !whole.ends_with(dwg::TextOf(dwg::EndOf(dwg::kPreviewBegin)))) {
        throw DwgFault("the preview has no marks around it");
    }
    remains_->preview = whole.substr(kMark, kSize + size);
    remains_->previewPosition = static_cast<std::uint32_t>(position);
    end_ = std::max(end_, position + whole.size());
}

void DwgFileReader::readVariables() {
    const std::string_view content =
        framed(dwg::kHeaderVariables, dwg::kVariablesBegin, "header variables");
    DwgBitReader bits(dwg::BytesOf(content), 0, 8 * content.size());
    DwgFieldReader fields(bits, bits, database_, 0);
    HeaderVariables::fields(fields, database_.header());
    if (!fields.exact()) {
        throw DwgFault("the header variables cannot be read");
    }
}

void DwgFileReader::readClasses() {
    constexpr std::int16_t kEntity = 0x1F2;
    constexpr std::size_t kLeastBits = 8;  // what fills up the last byte is less
    const std::string_view content = framed(dwg::kClasses, dwg::kClassesBegin, "classes");
    DwgBitReader bits(dwg::BytesOf(content), 0, 8 * content.size());
    std::int16_t number = DwgClassTable::kFirstNumber;
    while (bits.remaining() >= kLeastBits) {
        auto fileClass = std::make_shared<AcDbFileClass>();
        const std::int16_t itsNumber = bits.bitShort();
        fileClass->proxyFlags = bits.bitShort();
        bits.text(fileClass->appName);
        bits.text(fileClass->className);
        bits.text(fileClass->dxfName);
        fileClass->wasProxy = bits.bit();
        fileClass->isEntity = bits.bitShort() == kEntity;
        if (bits.failed() || itsNumber != number || number == INT16_MAX) {
            throw DwgFault("the list of classes is damaged after class " +
                           std::to_string(number - 1));
        }
        ++number;
        state_.classes.add(std::move(fileClass));
    }
    remains_->classes = state_.classes.classes();
    remains_->classesContent = content;
}

void DwgFileReader::readTemplate() {
    const std::string_view content = section(dwg::kTemplate);
    if (content.empty()) {
        return;
    }
    const std::size_t length = content.size() < 4 ? 0 : dwg::ShortAt(content, 0);
    if (content.size() != length + 4) {
        throw DwgFault("the section of the template has a wrong size");
    }
    remains_->templateName = content.substr(2, length);
    database_.header().MEASUREMENT = static_cast<Adesk::Int16>(dwg::ShortAt(content, 2 + length));
}

// Before anything that refers to objects, so that the database has its entries in their order.
void DwgFileReader::readObjectMap() {
    map_ = dwg::ReadObjectMap(section(dwg::kObjectMap));
    state_.links.reserve(map_.size());
    for (const dwg::MapEntry& entry : map_) {
        database_.idOfHandle(entry.handle);
    }
}

std::size_t DwgFileReader::mapEnd() const {
    const std::string_view map = section(dwg::kObjectMap);
    return static_cast<std::size_t>(map.data() - file_.data()) + map.size();
}
