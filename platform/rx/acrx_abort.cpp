#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "platform/rx/AcRxDynamicLinker.h"

void acrx_abort(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fputc('\n', stderr);
    std::abort();
}
