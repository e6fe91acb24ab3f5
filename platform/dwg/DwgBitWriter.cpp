#include "platform/dwg/DwgBitWriter.h"

#include <algorithm>

namespace {
constexpr std::size_t kFirstCapacity = 4096;
constexpr std::size_t kLongestText = 0xFFFF;
}  // namespace

DwgBitWriter::DwgBitWriter()
    : memory_(std::make_unique_for_overwrite<std::uint8_t[]>(kFirstCapacity)),
      capacity_(kFirstCapacity) {}

void DwgBitWriter::clear() {
    used_ = 0;
    pending_ = 0;
    pendingBits_ = 0;
}

void DwgBitWriter::grow(std::size_t more) {
    const std::size_t capacity = std::max(2 * capacity_, used_ + more);
    auto memory = std::make_unique_for_overwrite<std::uint8_t[]>(capacity);
    std::memcpy(memory.get(), memory_.get(), used_);
    memory_ = std::move(memory);
    capacity_ = capacity;
}

void DwgBitWriter::bitShort(std::int16_t value) {
    if (value == 0) {
        bits(0b10, 2);
    } else if (value == 256) {
        bits(0b11, 2);
    } else if (value > 0 && value < 256) {
        bits(0b01U << 8U | static_cast<unsigned>(value), 10);
    } else {
        bits(0b00, 2);
        rawShort(static_cast<std::uint16_t>(value));
    }
}

void DwgBitWriter::bitLong(std::int32_t value) {
    if (value == 0) {
        bits(0b10, 2);
    } else if (value > 0 && value < 256) {
        bits(0b01U << 8U | static_cast<unsigned>(value), 10);
    } else {
        bits(0b00, 2);
        rawLong(static_cast<std::uint32_t>(value));
    }
}

void DwgBitWriter::bitDouble(double value) {
    // By bits: -0.0 is not the short form of 0.0.
    const auto word = std::bit_cast<std::uint64_t>(value);
    if (word == 0) {
        bits(0b10, 2);
    } else if (word == std::bit_cast<std::uint64_t>(1.0)) {
        bits(0b01, 2);
    } else {
        bits(0b00, 2);
        rawDouble(value);
    }
}

void DwgBitWriter::doubleWithDefault(double value, double fallback) {
    const auto word = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t difference = word ^ std::bit_cast<std::uint64_t>(fallback);
    if (difference == 0) {
        bits(0b00, 2);
    } else if (difference >> 32U == 0) {
        bits(0b01, 2);
        rawLong(static_cast<std::uint32_t>(word));
    } else if (difference >> 48U == 0) {
        bits(0b10, 2);
        rawShort(static_cast<std::uint16_t>(word >> 32U));
        rawLong(static_cast<std::uint32_t>(word));
    } else {
        bits(0b11, 2);
        rawDouble(value);
    }
}

void DwgBitWriter::text(std::string_view text) {
    text = text.substr(0, kLongestText);
    bitShort(static_cast<std::int16_t>(static_cast<std::uint16_t>(text.size())));
    bytes({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void DwgBitWriter::handle(unsigned code, AcDbHandle value) {
    const unsigned count = (static_cast<unsigned>(std::bit_width(value)) + 7) / 8;
    bits(code << 4U | count, 8);
    for (unsigned i = count; i-- > 0;) {
        rawChar(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

void DwgBitWriter::bytes(std::span<const std::uint8_t> bytes) {
    bitString(bytes.data(), 8 * bytes.size());
}

void DwgBitWriter::bitString(const std::uint8_t* bytes, std::size_t count) {
    for (; count >= 32; bytes += 4, count -= 32) {
        std::uint32_t word = 0;
        std::memcpy(&word, bytes, 4);
        bits(__builtin_bswap32(word), 32);
    }
    for (; count >= 8; ++bytes, count -= 8) {
        bits(*bytes, 8);
    }
    if (count > 0) {
        bits(static_cast<unsigned>(*bytes) >> (8 - count), static_cast<unsigned>(count));
    }
}

void DwgBitWriter::truncate(std::size_t bitPosition) {
    view();
    setPosition(bitPosition);
}

// Everything up to the position is in memory; what is beyond the last whole word goes back to the
// pending bits.
void DwgBitWriter::setPosition(std::size_t bitPosition) {
    used_ = bitPosition / 32 * 4;
    pendingBits_ = static_cast<unsigned>(bitPosition % 32);
    std::uint32_t word = 0;
    if (pendingBits_ > 0) {
        std::memcpy(&word, memory_.get() + used_, 4);
        word = __builtin_bswap32(word) >> (32 - pendingBits_);
    }
    pending_ = word;
}

std::span<const std::uint8_t> DwgBitWriter::view() {
    if (used_ + 4 > capacity_) {
        grow(4);
    }
    if (pendingBits_ > 0) {
        const auto word =
            __builtin_bswap32(static_cast<std::uint32_t>(pending_ << (32 - pendingBits_)));
        std::memcpy(memory_.get() + used_, &word, 4);
    }
    return {memory_.get(), used_ + (pendingBits_ + 7) / 8};
}

void DwgBitWriter::amendRawLong(std::size_t bitPosition, std::uint32_t value) {
    const std::size_t end = this->bitPosition();
    view();
    for (std::size_t i = 0; i < 4; ++i) {
        const unsigned byte = value >> (8 * i) & 0xFFU;
        std::uint8_t* at = memory_.get() + bitPosition / 8 + i;
        const unsigned shift = bitPosition % 8;
        at[0] = static_cast<std::uint8_t>((at[0] & ~(0xFFU >> shift)) | byte >> shift);
        if (shift > 0) {
            at[1] = static_cast<std::uint8_t>((at[1] & (0xFFU >> shift)) | byte << (8 - shift));
        }
    }
    setPosition(end);
}
