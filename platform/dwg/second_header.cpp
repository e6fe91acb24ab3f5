#include "platform/dwg/second_header.h"

#include <bit>

#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/crc.h"

namespace dwg {
namespace {

constexpr std::size_t kMark = std::tuple_size_v<Sentinel>;
constexpr std::size_t kSizeBytes = 4;
constexpr std::size_t kAfterCrc = 8;  // of no known meaning

void writeHead(DwgBitWriter& bits, std::uint32_t position, const HeaderVariables& header,
               const WriterNumbers& writer) {
    constexpr std::size_t kVersionBytes = 11;
    std::string version(kVersion);
    version.resize(kVersionBytes);
    bits.bitLong(static_cast<std::int32_t>(position));
    bits.bytes({BytesOf(version), version.size()});
    bits.rawChar(writer.maintenance);
    bits.rawChar(1);
    bits.bitShort(static_cast<std::int16_t>(writer.release << 8U | writer.version));
    bits.rawShort(static_cast<std::uint16_t>(header.DWGCODEPAGE));
}

void writeSections(DwgBitWriter& bits, const std::vector<SectionLocator>& sections) {
    bits.bitShort(kKnownSections);
    for (std::uint8_t number = 0; number < kKnownSections; ++number) {
        SectionLocator located;
        for (const SectionLocator& section : sections) {
            located = section.number == number ? section : located;
        }
        bits.rawChar(number);
        bits.bitLong(static_cast<std::int32_t>(located.address));
        bits.bitLong(static_cast<std::int32_t>(located.size));
    }
}

void writeHandles(DwgBitWriter& bits, const HeaderVariables& h) {
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

}  // namespace

std::string SecondHeader(std::uint32_t position, const HeaderVariables& header,
                         const WriterNumbers& writer, const std::vector<SectionLocator>& sections) {
    DwgBitWriter bits;
    bits.rawLong(0);  // for the size
    writeHead(bits, position, header, writer);
    writeSections(bits, sections);
    writeHandles(bits, header);
    bits.alignToByte();
    const std::size_t size = bits.bitPosition() / 8 + kCrcSize + kAfterCrc;
    bits.amendRawLong(0, static_cast<std::uint32_t>(size));

    const auto content = bits.view();
    std::string text(TextOf(kSecondHeaderBegin));
    text.append(reinterpret_cast<const char*>(content.data()), content.size());
    AppendShort(text, Crc(content.data(), content.size()));
    text.append(kAfterCrc, '\0');
    return text.append(TextOf(EndOf(kSecondHeaderBegin)));
}

std::size_t FindEndOfSecondHeader(std::string_view file, std::size_t from) {
    // It is located by nothing but its mark.
    const std::size_t position = file.find(TextOf(kSecondHeaderBegin), from);
    if (position == std::string_view::npos) {
        throw DwgFault("the second header is missing");
    }
    const std::string_view rest = file.substr(position + kMark);
    const std::size_t size = rest.size() < kSizeBytes ? 0 : LongAt(rest, 0);
    if (size < kSizeBytes + kCrcSize + kAfterCrc || rest.size() < kMark ||
        size > rest.size() - kMark ||
        rest.substr(size, kMark) != TextOf(EndOf(kSecondHeaderBegin))) {
        throw DwgFault("the second header does not end with its mark");
    }
    const std::size_t crcPosition = size - kAfterCrc - kCrcSize;
    if (Crc(BytesOf(rest), crcPosition) != ShortAt(rest, crcPosition)) {
        throw DwgFault("the second header has a wrong check sum");
    }
    return position + kMark + size + kMark;
}

}  // namespace dwg
