#pragma once

#include <QString>

namespace windows {

/// The program's own words in the language of the user: Chinese where the locale is, else English.
QString InterfaceText(const char* english, const char* chinese);

}  // namespace windows
