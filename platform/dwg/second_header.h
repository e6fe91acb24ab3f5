#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/db/HeaderVariables.h"
#include "platform/dwg/file_layout.h"

/// The second header: what a file can be put together again from when its head is lost.
namespace dwg {

/// With the marks around it, to stand at `position`. Sections that come later in the file are not
/// located.
std::string SecondHeader(std::uint32_t position, const HeaderVariables& header,
                         const WriterNumbers& writer, const std::vector<SectionLocator>& sections);

/// Finds the second header at or behind `from` and returns where it ends. Throws DwgFault when it
/// is missing or damaged.
std::size_t FindEndOfSecondHeader(std::string_view file, std::size_t from);

}  // namespace dwg
