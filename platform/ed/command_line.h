#pragma once

#include <functional>
#include <string>

/// Prints GBK text on the command line. The text may be of any length. Returns RTNORM.
int acutPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));

namespace ed {
/// Where the command line's text goes (GBK, as printed). Null: nowhere. Returns the sink before.
using CommandLineSink = std::function<void(const std::string& text)>;
CommandLineSink SetCommandLineSink(CommandLineSink sink);
}  // namespace ed
