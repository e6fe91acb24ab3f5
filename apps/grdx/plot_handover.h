#pragma once

namespace console {

/// Becomes the plotting program that stands beside this one, with arguments that start with the
/// call's own name and end with null: this program needs no window system and starts as fast as
/// without. Failure when it is missing.
[[noreturn]] void HandOverToPlotting(char** arguments);

}  // namespace console
