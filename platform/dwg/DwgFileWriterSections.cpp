// The sections of a drawing file that are not its objects.
#include <algorithm>

#include "platform/db/AcDbDatabase.h"
#include "platform/dwg/DwgFieldWriter.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/dwg/auxiliary_header.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/second_header.h"

void DwgFileWriter::appendHead() {
    file_ += dwg::kVersion;
    const std::size_t sections = dwg::kKnownSections + remains_.unknownSections.size();
    file_.resize(dwg::kLocatorsPosition + sections * dwg::kLocatorSize + dwg::kCrcSize);
    file_ += dwg::TextOf(dwg::kHeadEnd);
}

void DwgFileWriter::finishHead() {
    file_[dwg::kMaintenancePosition] = static_cast<char>(remains_.writer.maintenance);
    file_[dwg::kMaintenancePosition + 1] = 1;
    file_[dwg::kProgramPosition] = static_cast<char>(remains_.writer.version);
    file_[dwg::kProgramPosition + 1] = static_cast<char>(remains_.writer.release);
    dwg::PutShort(file_, dwg::kCodePagePosition,
                  static_cast<std::uint16_t>(database_.header().DWGCODEPAGE));
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
    dwg::PutShort(file_, at, dwg::Crc(dwg::BytesOf(file_), at));
}

void DwgFileWriter::appendAuxiliaryHeader() {
    beginSection(dwg::kAuxiliaryHeader);
    file_ += dwg::AuxiliaryHeader(database_.header(), remains_.writer, remains_.auxiliaryHeader);
    endSection();
}

namespace {

// The pictures are found by their places in the file, which move with the section: after the size
// their number, and for each a kind, the address and the size.
std::string previewAt(std::size_t position, const DwgFileRemains& remains) {
    constexpr std::size_t kCountPosition = 4;
    constexpr std::size_t kPictureSize = 9;
    std::string preview = remains.preview;
    const auto shift = static_cast<std::uint32_t>(position) - remains.previewPosition;
    const std::size_t count =
        preview.size() > kCountPosition ? dwg::BytesOf(preview)[kCountPosition] : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t address = kCountPosition + 1 + kPictureSize * i + 1;
        if (address + kPictureSize - 1 > preview.size()) {
            break;
        }
        dwg::PutLong(preview, address, dwg::LongAt(preview, address) + shift);
    }
    return preview;
}

}  // namespace

void DwgFileWriter::appendPreview() {
    const std::size_t position = file_.size();
    dwg::PutLong(file_, dwg::kPreviewPosition, static_cast<std::uint32_t>(position));
    file_ += dwg::TextOf(dwg::kPreviewBegin);
    if (remains_.preview.empty()) {
        dwg::AppendLong(file_, 1);
        file_.push_back(0);  // no pictures
    } else {
        file_ += previewAt(position, remains_);
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
    dwg::AppendTime(file_, database_.header().TDUPDATE);
    dwg::AppendLong(file_, objectsStart_);
    file_.push_back(4);
    for (const std::uint32_t limit : {0x32U, 0x64U, 0x200U, 0xFFFFFFFFU}) {
        dwg::AppendLong(file_, limit);
        dwg::AppendLong(file_, 0);
    }
    endSection();
}

void DwgFileWriter::appendSecondHeader() {
    file_ += dwg::SecondHeader(static_cast<std::uint32_t>(file_.size()), database_.header(),
                               remains_.writer, sections_);
}

void DwgFileWriter::appendTemplate() {
    beginSection(dwg::kTemplate);
    dwg::AppendShort(file_, static_cast<std::uint16_t>(remains_.templateName.size()));
    file_ += remains_.templateName;
    dwg::AppendShort(file_, static_cast<std::uint16_t>(database_.header().MEASUREMENT));
    endSection();
}
