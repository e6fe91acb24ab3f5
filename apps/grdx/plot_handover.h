#pragma once

#include <string>
#include <vector>

namespace console {

/// Becomes the plotting program that stands beside this one, with arguments that start with the
/// call's own name and end with null: this program needs no window system and starts as fast as
/// without. Failure when it is missing.
[[noreturn]] void HandOverToPlotting(char** arguments);

/// Has that program plot drawings as the pages of one PDF file, in the order given; it prints the
/// file's path, or why there is none. Paths are absolute. False when anything is missing in it.
/// Failure when the program cannot be started.
bool PlotToPdf(const std::vector<std::string>& drawings, const std::string& pdf,
               const std::string& suiteFolder);

}  // namespace console
