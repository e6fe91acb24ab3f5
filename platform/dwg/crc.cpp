#include "platform/dwg/crc.h"

#include <array>

namespace dwg {
namespace {

constexpr std::size_t kSlices = 8;
using Tables = std::array<std::array<std::uint16_t, 256>, kSlices>;

// tables[k][b] is the effect of byte b followed by k zero bytes: eight bytes are folded in at once.
constexpr Tables MakeTables() {
    Tables tables{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
        }
        tables[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t k = 1; k < kSlices; ++k) {
            const unsigned before = tables[k - 1][byte];
            tables[k][byte] =
                static_cast<std::uint16_t>((before >> 8U) ^ tables[0][before & 0xFFU]);
        }
    }
    return tables;
}

constexpr Tables kTables = MakeTables();

}  // namespace

std::uint16_t Crc(const std::uint8_t* bytes, std::size_t count, std::uint16_t seed) {
    unsigned crc = seed;
    for (; count >= kSlices; bytes += kSlices, count -= kSlices) {
        const unsigned first = bytes[0] ^ (crc & 0xFFU);
        const unsigned second = bytes[1] ^ (crc >> 8U);
        crc = kTables[7][first] ^ kTables[6][second] ^ kTables[5][bytes[2]] ^ kTables[4][bytes[3]] ^
              kTables[3][bytes[4]] ^ kTables[2][bytes[5]] ^ kTables[1][bytes[6]] ^
              kTables[0][bytes[7]];
    }
    for (; count > 0; ++bytes, --count) {
        crc = (crc >> 8U) ^ kTables[0][(crc ^ *bytes) & 0xFFU];
    }
    return static_cast<std::uint16_t>(crc);
}

}  // namespace dwg
