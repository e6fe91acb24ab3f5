#pragma once

#include <string>

#include "apps/grdx/MessageStream.h"

namespace console {

/// Writes the model space of a drawing as one SVG page; both paths are of the file system, UTF-8.
/// The plug-in is loaded for it, so that curves draw themselves. Failure when the drawing cannot be
/// read or the page cannot be written.
void PlotAsSvg(const std::string& drawing, const std::string& page, MessageStream& messages);

}  // namespace console
