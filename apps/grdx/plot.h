#pragma once

#include <string>

namespace console {

/// Writes the model space of a drawing as one SVG page and gives the page's path: `page`, or for an
/// empty one the drawing's own with another ending. Paths are of the file system, UTF-8. Curves
/// draw themselves when the plug-in is loaded and are left out when it is not. Failure when the
/// drawing cannot be read or the page cannot be written.
std::string PlotAsSvg(const std::string& drawing, const std::string& page);

}  // namespace console
