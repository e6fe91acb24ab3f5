#pragma once

#include <functional>
#include <string>

#include "platform/win32/Language.h"

namespace lab {

/// Adds the command GoDBManage, which the plug-in starts when the project's data are unchecked: it
/// tells where the data check of the open suite's project stands and lets the user mark the project
/// as checked. It speaks `language`, also when it was added in another before. `onFailure` hears
/// what it could not do (UTF-8), once the command has said so.
void AddDataManagement(win32::Language language,
                       std::function<void(const std::string& fault)> onFailure);

}  // namespace lab
