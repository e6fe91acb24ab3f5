#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/db/AcDb.h"

/// Where the objects of a drawing stand in its file.
namespace dwg {

struct MapEntry {
    AcDbHandle handle = 0;
    std::uint32_t position = 0;
};

/// Appends the map of entries sorted by handle, in pages with a check sum each.
void AppendObjectMap(std::string& file, const std::vector<MapEntry>& entries);
/// The entries, sorted by handle. Throws DwgFault for a map that is damaged.
std::vector<MapEntry> ReadObjectMap(std::string_view map);

}  // namespace dwg
