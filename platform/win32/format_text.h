#pragma once

#include <locale.h>

#include <cstdarg>
#include <string>

/// Texts that files, databases and scripts hold are written the same for every user, whatever the
/// locale that a window system has set for the program: numbers with a point.
namespace win32 {

/// The C library's own locale.
locale_t PlainLocale();

/// As vsnprintf does it there; empty for a format that cannot be. `arguments` are used up.
std::string FormatText(const char* format, std::va_list arguments);

}  // namespace win32
