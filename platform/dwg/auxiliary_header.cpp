#include "platform/dwg/auxiliary_header.h"

#include <algorithm>
#include <initializer_list>

namespace dwg {
namespace {

constexpr std::size_t kUpdatePosition = 71;
constexpr std::size_t kSeedPosition = 79;
constexpr std::size_t kSize = 123;

void appendShorts(std::string& text, std::initializer_list<unsigned> values) {
    for (const unsigned value : values) {
        AppendShort(text, static_cast<std::uint16_t>(value));
    }
}

void appendLongs(std::string& text, std::initializer_list<std::uint32_t> values) {
    for (const std::uint32_t value : values) {
        AppendLong(text, value);
    }
}

// Most of it has no known meaning and is the same in all files.
std::string newHeader(const HeaderVariables& header, const WriterNumbers& writer) {
    constexpr unsigned kSaves = 1;
    const unsigned version = writer.version;
    const unsigned release = writer.release;
    std::string text = "\xFF\x77\x01";
    appendShorts(text, {version, release});
    appendLongs(text, {kSaves, 0xFFFFFFFF});
    appendShorts(text, {kSaves, 0});
    appendLongs(text, {0});
    appendShorts(text, {version, release, version, release, 5, 0x893, 5, 0x893, 0, 1});
    appendLongs(text, {0, 0, 0, 0, 0});
    AppendTime(text, header.TDCREATE);
    AppendTime(text, header.TDUPDATE);
    appendLongs(text, {0, 0});  // the first of them for the seed
    appendShorts(text, {0, kSaves});
    appendLongs(text, {0, 0, 0, kSaves, 0, 0, 0, 0});
    return text;
}

}  // namespace

std::string AuxiliaryHeader(const HeaderVariables& header, const WriterNumbers& writer,
                            const std::string& kept) {
    std::string text = kept.size() == kSize ? kept : newHeader(header, writer);
    std::string update;
    AppendTime(update, header.TDUPDATE);
    text.replace(kUpdatePosition, update.size(), update);
    PutLong(text, kSeedPosition,
            static_cast<std::uint32_t>(std::min<AcDbHandle>(header.HANDSEED, UINT32_MAX)));
    return text;
}

}  // namespace dwg
