#include "platform/ed/command_line.h"

#include <cstdarg>
#include <utility>

#include "platform/ed/adesk_results.h"
#include "platform/win32/format_text.h"

namespace {
ed::CommandLineSink& Sink() {
    static ed::CommandLineSink sink;
    return sink;
}
}  // namespace

int acutPrintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = win32::FormatText(format, arguments);
    va_end(arguments);
    if (Sink()) {
        Sink()(text);
    }
    return RTNORM;
}

ed::CommandLineSink ed::SetCommandLineSink(CommandLineSink sink) {
    return std::exchange(Sink(), std::move(sink));
}
