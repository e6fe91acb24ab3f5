#pragma once

#include <cstdint>
#include <optional>

#include "platform/db/AcDb.h"

/// Line weights and their codes in the file format.
namespace db {

/// 29 is by layer, 30 by block, 0 to 23 a width; others, 31 among them, are the default.
AcDb::LineWeight LineWeightOf(std::uint8_t code);
/// Nothing for a width that lines cannot have.
std::optional<std::uint8_t> CodeOf(AcDb::LineWeight weight);

}  // namespace db
