#include "platform/ed/command_line.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "platform/ed/adesk_results.h"

namespace {
ed::CommandLineSink& Sink() {
    static ed::CommandLineSink sink;
    return sink;
}

std::string Format(const char* format, va_list arguments) {
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length <= 0) {
        return {};
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}
}  // namespace

int acutPrintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = Format(format, arguments);
    va_end(arguments);
    if (Sink()) {
        Sink()(text);
    }
    return RTNORM;
}

ed::CommandLineSink ed::SetCommandLineSink(CommandLineSink sink) {
    return std::exchange(Sink(), std::move(sink));
}
