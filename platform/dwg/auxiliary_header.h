#pragma once

#include <string>

#include "platform/db/HeaderVariables.h"
#include "platform/dwg/file_layout.h"

namespace dwg {

/// The section that repeats facts of the head in a form of its own. `kept` is that of the file that
/// the drawing was read from, of which only date and handle seed change; empty for none.
std::string AuxiliaryHeader(const HeaderVariables& header, const WriterNumbers& writer,
                            const std::string& kept);

}  // namespace dwg
