#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/db/AcDb.h"

/// A handle as it stands in a file: a code and a number. Codes 6, 8, 10 and 12 count from the
/// object that holds the reference, with all others the number is the handle.
struct DwgFileHandle {
    std::uint8_t code = 0;
    AcDbHandle value = 0;
    /// The handle meant, for a reference held by `holder`; 0 for none.
    AcDbHandle resolved(AcDbHandle holder) const;
};

/// Reads the bit codings of drawing files. Reading past the end, or a coding without a meaning,
/// yields zeros and sets failed() for good.
class DwgBitReader {
public:
    DwgBitReader() = default;
    /// The bits from `begin` up to `end` of the bytes, which must outlive the reader.
    DwgBitReader(const std::uint8_t* bytes, std::size_t begin, std::size_t end)
        : bytes_(bytes), position_(begin), end_(end) {}

    bool failed() const { return failed_; }
    void fail() {
        failed_ = true;
        position_ = end_;
    }
    std::size_t bitPosition() const { return position_; }
    std::size_t remaining() const { return end_ - position_; }

    /// The next `count` bits (0 to 32).
    std::uint32_t bits(unsigned count);
    bool bit() { return bits(1) != 0; }
    std::uint8_t rawChar() { return static_cast<std::uint8_t>(bits(8)); }
    std::uint16_t rawShort() {
        return static_cast<std::uint16_t>(__builtin_bswap16(static_cast<std::uint16_t>(bits(16))));
    }
    std::uint32_t rawLong() { return __builtin_bswap32(bits(32)); }
    double rawDouble();

    std::int16_t bitShort();
    std::int32_t bitLong();
    double bitDouble();
    double doubleWithDefault(double fallback);
    /// Without the zero byte that some programs count in.
    void text(std::string& text);
    DwgFileHandle handle();
    void bytes(std::size_t count, std::vector<std::uint8_t>& bytes);
    /// The next `count` bits, from the highest bit of the first byte; the rest of the last byte 0.
    void bitString(std::size_t count, std::vector<std::uint8_t>& bytes);
    void skip(std::size_t count);

private:
    const std::uint8_t* bytes_ = nullptr;
    std::size_t position_ = 0;
    std::size_t end_ = 0;
    bool failed_ = false;
};
