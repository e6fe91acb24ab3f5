#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

#include "platform/db/AcDb.h"

/// Writes the bit codings of drawing files, highest bit of a byte first. Bits gather in a word and
/// reach the memory four bytes at a time.
class DwgBitWriter {
public:
    DwgBitWriter();

    /// Forgets what was written and keeps the memory.
    void clear();
    std::size_t bitPosition() const { return 8 * used_ + pendingBits_; }

    /// The lowest `count` bits (0 to 32) of `value`, whose higher bits are 0.
    void bits(std::uint32_t value, unsigned count) {
        pending_ = pending_ << count | value;
        pendingBits_ += count;
        if (pendingBits_ >= 32) {
            pendingBits_ -= 32;
            store(static_cast<std::uint32_t>(pending_ >> pendingBits_));
        }
    }
    void bit(bool value) { bits(value ? 1 : 0, 1); }
    void rawChar(std::uint8_t value) { bits(value, 8); }
    void rawShort(std::uint16_t value) {
        bits((value & 0xFFU) << 8U | static_cast<unsigned>(value) >> 8U, 16);
    }
    void rawLong(std::uint32_t value) { bits(__builtin_bswap32(value), 32); }
    void rawDouble(double value) {
        const auto word = std::bit_cast<std::uint64_t>(value);
        rawLong(static_cast<std::uint32_t>(word));
        rawLong(static_cast<std::uint32_t>(word >> 32U));
    }

    void bitShort(std::int16_t value);
    void bitLong(std::int32_t value);
    void bitDouble(double value);
    /// Only what of `value` differs from `fallback`, which the reader knows.
    void doubleWithDefault(double value, double fallback);
    /// A text with its length; longer ones are cut at 65535 bytes, the coding's limit.
    void text(std::string_view text);
    /// Code (0 to 15) and number; 0 takes no bytes beyond the head.
    void handle(unsigned code, AcDbHandle value);
    void bytes(std::span<const std::uint8_t> bytes);
    /// The first `count` bits of a bit string.
    void bitString(const std::uint8_t* bytes, std::size_t count);
    /// Zero bits up to the next whole byte.
    void alignToByte() { bits(0, (8 - pendingBits_ % 8) % 8); }
    /// Takes back everything after a bit position.
    void truncate(std::size_t bitPosition);

    /// All bits so far, the last byte filled up with zeros. Valid until the next call.
    std::span<const std::uint8_t> view();
    /// Overwrites a 32-bit value written before, where it is known only afterwards.
    void amendRawLong(std::size_t bitPosition, std::uint32_t value);

private:
    void store(std::uint32_t word) {
        if (used_ + 4 > capacity_) {
            grow(4);
        }
        word = __builtin_bswap32(word);
        std::memcpy(memory_.get() + used_, &word, 4);
        used_ += 4;
    }
    void grow(std::size_t more);
    void setPosition(std::size_t bitPosition);

    std::unique_ptr<std::uint8_t[]> memory_;
    std::size_t capacity_ = 0;
    std::size_t used_ = 0;       // bytes in memory, a multiple of 4 between calls
    std::uint64_t pending_ = 0;  // the lowest pendingBits_ bits are still to be stored
    unsigned pendingBits_ = 0;   // below 32 between calls
};
