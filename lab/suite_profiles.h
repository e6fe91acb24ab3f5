#pragma once

#include <string>

namespace lab {

/// The open suite's profiles, as profiles have paths (GBK). Failure when no suite is open.
std::string ProjectProfilePath();
std::string MarkProfilePath();
std::string SettingsProfilePath();

}  // namespace lab
