// The sections of a drawing file that are not its objects.
#include <algorithm>

#include "platform/dwg/DwgFieldWriter.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/dwg/crc.h"

namespace {

// As the first release that wrote this version of the format gives them.
constexpr std::uint8_t kMaintenance = 6;
constexpr std::uint8_t kProgramVersion = 0x17;

std::array<std::uint8_t, 3> writerOf(const DwgFileRemains& remains) {
    return remains.file.empty()
               ? std::array<std::uint8_t, 3>{kMaintenance, kProgramVersion, kMaintenance}
               : remains.writer;
}

void appendTime(std::string& file, DrawingTime time) {
    dwg::AppendLong(file, static_cast<std::uint32_t>(time.days));
    dwg::AppendLong(file, static_cast<std::uint32_t>(time.milliseconds));
}

std::uint32_t seedOf(const HeaderVariables& header) {
    return static_cast<std::uint32_t>(std::min<AcDbHandle>(header.HANDSEED, UINT32_MAX));
}

}  // namespace

void DwgFileWriter::appendHead() {
    file_ += dwg::kVersion;
    const std::size_t sections = dwg::kKnownSections + remains_.unknownSections.size();
    file_.resize(dwg::kLocatorsPosition + sections * dwg::kLocatorSize + dwg::kCrcSize);
    file_ += dwg::TextOf(dwg::kHeadEnd);
}

void DwgFileWriter::finishHead() {
    const std::array<std::uint8_t, 3> writer = writerOf(remains_);
    file_[dwg::kMaintenancePosition] = static_cast<char>(writer[0]);
    file_[dwg::kMaintenancePosition + 1] = 1;
    file_[dwg::kProgramPosition] = static_cast<char>(writer[1]);
    file_[dwg::kProgramPosition + 1] = static_cast<char>(writer[2]);
    const auto codePage = static_cast<std::uint16_t>(database_.header().DWGCODEPAGE);
    file_[dwg::kCodePagePosition] = static_cast<char>(codePage);
    file_[dwg::kCodePagePosition + 1] = static_cast<char>(codePage >> 8U);
    dwg::PutLong(file_, dwg::kSectionCountPosition, static_cast<std::uint32_t>(sections_.size()));
    std::sort(sections_.begin(), sections_.end(),
              [](const auto& a, const auto& b) { return a.number < b.number; });
    std::size_t at = dwg::kLocatorsPosition;
    for (const dwg::SectionLocator& section : sections_) {
        file_[at] = static_cast<char>(section.number);
        dwg::PutLong(file_, at + 1, section.address);
        dwg::PutLong(file_, at + 5, section.size);
        at += dwg::kLocatorSize;
    }
    const std::uint16_t crc = dwg::Crc(dwg::BytesOf(file_), at);
    file_[at] = static_cast<char>(crc);
    file_[at + 1] = static_cast<char>(crc >> 8U);
}

// Facts of the head once more, in a form of their own; of a file that was read, as it has them.
void DwgFileWriter::appendAuxiliaryHeader() {
    constexpr std::size_t kUpdatePosition = 71;
    constexpr std::size_t kSeedPosition = 79;
    constexpr std::size_t kSize = 123;
    const HeaderVariables& header = database_.header();
    beginSection(dwg::kAuxiliaryHeader);
    const std::size_t start = file_.size();
    if (remains_.auxiliaryHeader.size() == kSize) {
        file_ += remains_.auxiliaryHeader;
    } else {
        constexpr std::uint16_t kSaves = 1;
        file_ += "\xFF\x77\x01";
        for (const unsigned value : {kProgramVersion * 1U, kMaintenance * 1U, kSaves * 1U, 0U}) {
            dwg::AppendShort(file_, static_cast<std::uint16_t>(value));
        }
        dwg::AppendLong(file_, 0xFFFFFFFF);
        for (const unsigned value :
             {kSaves * 1U, 0U, 0U, 0U, kProgramVersion * 1U, kMaintenance * 1U,
              kProgramVersion * 1U, kMaintenance * 1U, 5U, 0x893U, 5U, 0x893U, 0U, 1U}) {
            dwg::AppendShort(file_, static_cast<std::uint16_t>(value));
        }
        file_.append(20, '\0');
        appendTime(file_, header.TDCREATE);
        file_.append(12, '\0');  // the update and the seed come below
        dwg::AppendLong(file_, 0);
        for (const unsigned value : {0U, kSaves * 1U}) {
            dwg::AppendShort(file_, static_cast<std::uint16_t>(value));
        }
        for (const unsigned value : {0U, 0U, 0U, kSaves * 1U, 0U, 0U, 0U, 0U}) {
            dwg::AppendLong(file_, value);
        }
    }
    const auto days = static_cast<std::uint32_t>(header.TDUPDATE.days);
    dwg::PutLong(file_, start + kUpdatePosition, days);
    dwg::PutLong(file_, start + kUpdatePosition + 4,
                 static_cast<std::uint32_t>(header.TDUPDATE.milliseconds));
    dwg::PutLong(file_, start + kSeedPosition, seedOf(header));
    endSection();
}

void DwgFileWriter::appendPreview() {
    dwg::PutLong(file_, dwg::kPreviewPosition, static_cast<std::uint32_t>(file_.size()));
    file_ += dwg::TextOf(dwg::kPreviewBegin);
    if (remains_.preview.empty()) {
        dwg::AppendLong(file_, 1);
        file_.push_back(0);  // no pictures
    } else {
        file_ += remains_.preview;
    }
    file_ += dwg::TextOf(dwg::EndOf(dwg::kPreviewBegin));
}

void DwgFileWriter::appendVariables() {
    DwgBitWriter bits;
    DwgFieldWriter fields(bits, bits);
    const HeaderVariables& header = database_.header();
    HeaderVariables::fields(fields, header);
    beginSection(dwg::kHeaderVariables);
    appendFramed(dwg::kVariablesBegin, bits.view());
    endSection();
}

void DwgFileWriter::appendClasses() {
    beginSection(dwg::kClasses);
    if (!remains_.classes.empty() && classes_.classes().size() == remains_.classes.size()) {
        const std::string& content = remains_.classesContent;
        appendFramed(dwg::kClassesBegin, {dwg::BytesOf(content), content.size()});
    } else {
        appendFramed(dwg::kClassesBegin, classBits().view());
    }
    endSection();
    dwg::AppendLong(file_, dwg::kBeforeObjects);
}

DwgBitWriter DwgFileWriter::classBits() const {
    constexpr std::int16_t kEntity = 0x1F2;
    constexpr std::int16_t kObject = 0x1F3;
    DwgBitWriter bits;
    std::int16_t number = DwgClassTable::kFirstNumber;
    for (const DwgClassTable::ClassPtr& fileClass : classes_.classes()) {
        bits.bitShort(number++);
        bits.bitShort(fileClass->proxyFlags);
        bits.text(fileClass->appName);
        bits.text(fileClass->className);
        bits.text(fileClass->dxfName);
        bits.bit(fileClass->wasProxy);
        bits.bitShort(fileClass->isEntity ? kEntity : kObject);
    }
    return bits;
}

void DwgFileWriter::appendFreeSpace() {
    beginSection(dwg::kFreeSpace);
    dwg::AppendLong(file_, 0);
    dwg::AppendLong(file_, static_cast<std::uint32_t>(map_.size()));
    appendTime(file_, database_.header().TDUPDATE);
    dwg::AppendLong(file_, objectsStart_);
    file_.push_back(4);
    for (const std::uint32_t limit : {0x32U, 0x64U, 0x200U, 0xFFFFFFFFU}) {
        dwg::AppendLong(file_, limit);
        dwg::AppendLong(file_, 0);
    }
    endSection();
}

void DwgFileWriter::appendSecondHeader() {
    const std::array<std::uint8_t, 3> writer = writerOf(remains_);
    const auto start = static_cast<std::uint32_t>(file_.size());
    DwgBitWriter bits;
    bits.rawLong(0);  // the size comes below
    bits.bitLong(static_cast<std::int32_t>(start));
    std::string version(dwg::kVersion);
    version.resize(11);
    bits.bytes({dwg::BytesOf(version), version.size()});
    bits.rawChar(writer[0]);
    bits.rawChar(1);
    bits.bitShort(static_cast<std::int16_t>(writer[2] << 8U | writer[1]));
    bits.rawShort(static_cast<std::uint16_t>(database_.header().DWGCODEPAGE));
    // The template comes only after this and is not located here.
    constexpr std::uint8_t kLocated[] = {dwg::kHeaderVariables, dwg::kClasses,
                                         dwg::kObjectMap,       dwg::kFreeSpace,
                                         dwg::kTemplate,        dwg::kAuxiliaryHeader};
    bits.bitShort(static_cast<std::int16_t>(std::size(kLocated)));
    for (const std::uint8_t number : kLocated) {
        dwg::SectionLocator located{number, 0, 0};
        for (const dwg::SectionLocator& section : sections_) {
            located = section.number == number ? section : located;
        }
        bits.rawChar(number);
        bits.bitLong(static_cast<std::int32_t>(located.address));
        bits.bitLong(static_cast<std::int32_t>(located.size));
    }
    appendSecondHandles(bits);

    constexpr std::size_t kAfterBits = dwg::kCrcSize + 8;
    bits.alignToByte();
    bits.amendRawLong(0, static_cast<std::uint32_t>(bits.view().size() + kAfterBits));
    file_ += dwg::TextOf(dwg::kSecondHeaderBegin);
    const auto content = bits.view();
    file_.append(reinterpret_cast<const char*>(content.data()), content.size());
    dwg::AppendShort(file_, dwg::Crc(content.data(), content.size()));
    file_.append(8, '\0');
    file_ += dwg::TextOf(dwg::EndOf(dwg::kSecondHeaderBegin));
}

void DwgFileWriter::appendSecondHandles(DwgBitWriter& bits) const {
    const HeaderVariables& h = database_.header();
    const AcDbHandle handles[] = {h.HANDSEED,
                                  h.BLOCK_CONTROL_OBJECT.handle(),
                                  h.LAYER_CONTROL_OBJECT.handle(),
                                  h.STYLE_CONTROL_OBJECT.handle(),
                                  h.LTYPE_CONTROL_OBJECT.handle(),
                                  h.VIEW_CONTROL_OBJECT.handle(),
                                  h.UCS_CONTROL_OBJECT.handle(),
                                  h.VPORT_CONTROL_OBJECT.handle(),
                                  h.APPID_CONTROL_OBJECT.handle(),
                                  h.DIMSTYLE_CONTROL_OBJECT.handle(),
                                  h.VX_CONTROL_OBJECT.handle(),
                                  h.DICTIONARY_NAMED_OBJECTS.handle(),
                                  h.DICTIONARY_ACAD_MLINESTYLE.handle(),
                                  h.DICTIONARY_ACAD_GROUP.handle()};
    bits.bitShort(static_cast<std::int16_t>(std::size(handles)));
    std::uint8_t number = 0;
    for (const AcDbHandle handle : handles) {
        const auto length = static_cast<std::uint8_t>((std::bit_width(handle) + 7) / 8);
        bits.rawChar(length);
        bits.rawChar(number++);
        for (unsigned i = length; i-- > 0;) {
            bits.rawChar(static_cast<std::uint8_t>(handle >> (8 * i)));
        }
    }
}

void DwgFileWriter::appendTemplate() {
    beginSection(dwg::kTemplate);
    dwg::AppendShort(file_, static_cast<std::uint16_t>(remains_.templateName.size()));
    file_ += remains_.templateName;
    dwg::AppendShort(file_, static_cast<std::uint16_t>(database_.header().MEASUREMENT));
    endSection();
}
