#pragma once

#include <cstdint>
#include <string>

namespace dwg {

/// A name for a version of a drawing, "{8-4-4-4-12}" hexadecimal digits, that follows from a
/// number.
std::string GuidOf(std::uint64_t number);

}  // namespace dwg
