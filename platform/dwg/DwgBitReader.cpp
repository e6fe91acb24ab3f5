#include "platform/dwg/DwgBitReader.h"

#include <algorithm>
#include <bit>
#include <cstring>

AcDbHandle DwgFileHandle::resolved(AcDbHandle holder) const {
    switch (code) {
        case 6:
            return holder + 1;
        case 8:
            return holder - 1;
        case 10:
            return holder + value;
        case 12:
            return holder - value;
        default:
            return value;
    }
}

std::uint32_t DwgBitReader::bits(unsigned count) {
    if (count > remaining()) {
        fail();
        return 0;
    }
    // 32 bits from any bit position lie within five bytes.
    std::uint64_t word = 0;
    const std::size_t first = position_ / 8;
    const std::size_t whole = std::min<std::size_t>((end_ + 7) / 8 - first, 8);
    if (whole == 8) {
        std::memcpy(&word, bytes_ + first, 8);
        word = __builtin_bswap64(word);
    } else {
        for (std::size_t i = 0; i < whole; ++i) {
            word |= static_cast<std::uint64_t>(bytes_[first + i]) << (56 - 8 * i);
        }
    }
    const unsigned shift = position_ % 8;
    position_ += count;
    return count == 0 ? 0 : static_cast<std::uint32_t>(word << shift >> (64 - count));
}

double DwgBitReader::rawDouble() {
    const std::uint64_t low = rawLong();
    const std::uint64_t high = rawLong();
    return failed_ ? 0.0 : std::bit_cast<double>(high << 32U | low);
}

std::int16_t DwgBitReader::bitShort() {
    switch (bits(2)) {
        case 0b00:
            return static_cast<std::int16_t>(rawShort());
        case 0b01:
            return rawChar();
        case 0b11:
            return 256;
        default:
            return 0;
    }
}

std::int32_t DwgBitReader::bitLong() {
    switch (bits(2)) {
        case 0b00:
            return static_cast<std::int32_t>(rawLong());
        case 0b01:
            return rawChar();
        case 0b11:
            fail();
            return 0;
        default:
            return 0;
    }
}

double DwgBitReader::bitDouble() {
    switch (bits(2)) {
        case 0b00:
            return rawDouble();
        case 0b01:
            return 1.0;
        case 0b11:
            fail();
            return 0.0;
        default:
            return 0.0;
    }
}

double DwgBitReader::doubleWithDefault(double fallback) {
    constexpr std::uint64_t kLow = 0xFFFFFFFF;
    auto word = std::bit_cast<std::uint64_t>(fallback);
    switch (bits(2)) {
        case 0b00:
            break;
        case 0b01:
            word = (word & ~kLow) | rawLong();
            break;
        case 0b10:
            word = (word & ~(kLow | std::uint64_t{0xFFFF} << 32U)) | std::uint64_t{rawShort()}
                                                                         << 32U;
            word |= rawLong();
            break;
        default:
            return rawDouble();
    }
    return failed_ ? 0.0 : std::bit_cast<double>(word);
}

void DwgBitReader::text(std::string& text) {
    const std::size_t length = static_cast<std::uint16_t>(bitShort());
    text.clear();
    if (8 * length > remaining()) {
        fail();
        return;
    }
    text.resize(length);
    for (char& c : text) {
        c = static_cast<char>(rawChar());
    }
    if (!text.empty() && text.back() == '\0') {
        text.pop_back();
    }
}

DwgFileHandle DwgBitReader::handle() {
    const std::uint8_t head = rawChar();
    DwgFileHandle handle{static_cast<std::uint8_t>(head >> 4U), 0};
    const unsigned count = head & 0xFU;
    if (count > 8) {
        fail();
        return {};
    }
    for (unsigned i = 0; i < count; ++i) {
        handle.value = handle.value << 8U | rawChar();
    }
    return failed_ ? DwgFileHandle{} : handle;
}

void DwgBitReader::bytes(std::size_t count, std::vector<std::uint8_t>& bytes) {
    if (count > remaining() / 8) {
        bytes.clear();
        fail();
        return;
    }
    bitString(8 * count, bytes);
}

void DwgBitReader::bitString(std::size_t count, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    if (count > remaining()) {
        fail();
        return;
    }
    bytes.resize((count + 7) / 8);
    std::size_t at = 0;
    for (; count >= 32; count -= 32, at += 4) {
        const std::uint32_t word = __builtin_bswap32(bits(32));
        std::memcpy(bytes.data() + at, &word, 4);
    }
    for (; count >= 8; count -= 8) {
        bytes[at++] = rawChar();
    }
    if (count > 0) {
        bytes[at] = static_cast<std::uint8_t>(bits(static_cast<unsigned>(count)) << (8 - count));
    }
}

void DwgBitReader::skip(std::size_t count) {
    if (count > remaining()) {
        fail();
        return;
    }
    position_ += count;
}
