#pragma once

namespace lab {

enum class Language { kEnglish, kChinese };

/// Adds the command GoDBManage, which the plug-in starts when the project's data are unchecked: it
/// tells where the data check of the open suite's project stands and lets the user mark the project
/// as checked. It speaks `language`, also when it was added in another before.
void AddDataManagement(Language language);

}  // namespace lab
