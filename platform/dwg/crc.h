#pragma once

#include <cstddef>
#include <cstdint>

/// The check sums of drawing files: CRC-16 with the reflected polynomial 0xA001.
namespace dwg {

/// What every section and every object starts from.
inline constexpr std::uint16_t kCrcSeed = 0xC0C1;

std::uint16_t Crc(const std::uint8_t* bytes, std::size_t count, std::uint16_t seed = kCrcSeed);

}  // namespace dwg
