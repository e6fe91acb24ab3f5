#pragma once

#include <QString>

namespace windows {

/// Whether the user's locale is Chinese.
bool IsInterfaceChinese();
/// The program's own words in the language of the user: Chinese where the locale is, else English.
QString InterfaceText(const char* english, const char* chinese);

}  // namespace windows
