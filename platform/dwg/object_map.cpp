#include "platform/dwg/object_map.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/file_layout.h"

namespace dwg {
namespace {

constexpr std::size_t kSizeBytes = 2;
constexpr std::size_t kCrcBytes = 2;
constexpr std::size_t kLongestPage = 2032;  // its size included, its check sum not

// Seven bits a byte, the lowest first; the highest bit says that more follow.
void appendUnsigned(std::string& page, std::uint64_t value) {
    for (; value > 0x7F; value >>= 7U) {
        page.push_back(static_cast<char>(value | 0x80U));
    }
    page.push_back(static_cast<char>(value));
}

// The same, the last byte with the sign in its second highest bit.
void appendSigned(std::string& page, std::int64_t value) {
    const bool negative = value < 0;
    auto rest = static_cast<std::uint64_t>(negative ? -value : value);
    for (; rest > 0x3F; rest >>= 7U) {
        page.push_back(static_cast<char>(rest | 0x80U));
    }
    page.push_back(static_cast<char>(rest | (negative ? 0x40U : 0U)));
}

// Size and check sum of a page are the only numbers of the format with the high byte first.
void putBigEndian(std::string& text, std::size_t position, std::size_t value) {
    text[position] = static_cast<char>(value >> 8U);
    text[position + 1] = static_cast<char>(value);
}

std::size_t bigEndianAt(std::string_view text, std::size_t position) {
    const std::uint8_t* bytes = BytesOf(text) + position;
    return static_cast<std::size_t>(bytes[0]) << 8U | bytes[1];
}

void finishPage(std::string& file, std::size_t start) {
    const std::size_t size = file.size() - start;
    putBigEndian(file, start, size);
    file.resize(file.size() + kCrcBytes);
    putBigEndian(file, start + size, Crc(BytesOf(file) + start, size));
}

// Reads the two numbers of an entry.
class PageReader {
public:
    explicit PageReader(std::string_view page) : page_(page) {}

    bool atEnd() const { return at_ == page_.size(); }
    std::uint64_t unsignedNumber() {
        std::uint64_t value = 0;
        unsigned shift = 0;
        std::uint8_t byte = next(shift);
        for (; (byte & 0x80U) != 0; byte = next(shift)) {
            value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            shift += 7;
        }
        return value | static_cast<std::uint64_t>(byte) << shift;
    }
    std::int64_t signedNumber() {
        std::uint64_t value = 0;
        unsigned shift = 0;
        std::uint8_t byte = next(shift);
        for (; (byte & 0x80U) != 0; byte = next(shift)) {
            value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            shift += 7;
        }
        value |= static_cast<std::uint64_t>(byte & 0x3FU) << shift;
        const auto number = static_cast<std::int64_t>(value);
        return (byte & 0x40U) != 0 ? -number : number;
    }

private:
    std::uint8_t next(unsigned shift) {
        if (atEnd() || shift > 56) {
            throw DwgFault("the object map has an entry that does not end");
        }
        return BytesOf(page_)[at_++];
    }

    std::string_view page_;
    std::size_t at_ = 0;
};

void readPage(std::string_view page, std::vector<MapEntry>& entries) {
    PageReader reader(page);
    AcDbHandle handle = 0;
    std::int64_t position = 0;
    while (!reader.atEnd()) {
        const std::uint64_t step = reader.unsignedNumber();
        const std::int64_t positionStep = reader.signedNumber();
        handle += step;
        const bool inOrder = step > 0 && handle <= AcDbDatabase::kHighestHandle &&
                             (entries.empty() || handle > entries.back().handle);
        // Both are below 2 to the power of 63, so that nothing overflows.
        if (!inOrder || positionStep < -position || positionStep > UINT32_MAX - position) {
            throw DwgFault("the object map is out of order");
        }
        position += positionStep;
        entries.push_back({handle, static_cast<std::uint32_t>(position)});
    }
}

}  // namespace

void AppendObjectMap(std::string& file, const std::vector<MapEntry>& entries) {
    std::size_t start = file.size();
    file.append(kSizeBytes, '\0');
    MapEntry previous;
    std::string entryBytes;
    for (const MapEntry& entry : entries) {
        const auto encode = [&] {
            entryBytes.clear();
            appendUnsigned(entryBytes, entry.handle - previous.handle);
            appendSigned(entryBytes, static_cast<std::int64_t>(entry.position) - previous.position);
        };
        encode();
        if (file.size() - start + entryBytes.size() > kLongestPage) {
            finishPage(file, start);
            start = file.size();
            file.append(kSizeBytes, '\0');
            previous = {};
            encode();
        }
        file += entryBytes;
        previous = entry;
    }
    // The map ends with an empty page.
    if (!entries.empty()) {
        finishPage(file, start);
        start = file.size();
        file.append(kSizeBytes, '\0');
    }
    finishPage(file, start);
}

std::vector<MapEntry> ReadObjectMap(std::string_view map) {
    std::vector<MapEntry> entries;
    for (;;) {
        const std::size_t size = map.size() < kSizeBytes ? 0 : bigEndianAt(map, 0);
        if (size < kSizeBytes || size + kCrcBytes > map.size()) {
            throw DwgFault("the object map is cut off");
        }
        if (Crc(BytesOf(map), size) != bigEndianAt(map, size)) {
            throw DwgFault("a page of the object map has a wrong check sum");
        }
        if (size == kSizeBytes) {
            return entries;
        }
        readPage(map.substr(kSizeBytes, size - kSizeBytes), entries);
        map.remove_prefix(size + kCrcBytes);
    }
}

}  // namespace dwg
