#pragma once

#include <string>

namespace console {

/// Writes the drawing (path of the file system, UTF-8) as an SVG page to `output`, empty for the
/// drawing's own name with the extension ".svg". Returns the path written. The plug-in must be
/// loaded: its curves draw themselves. Failure for a file that cannot be read or written.
std::string PlotAsSvg(const std::string& drawing, const std::string& output);

}  // namespace console
