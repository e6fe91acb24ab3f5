#pragma once

#include <string>

/// Sets `folder` to the suite's registered folder (GBK, a Windows path, with or without a backslash
/// at its end). False, and `folder` unchanged, when the suite has none.
bool QueryRegisteredFolder(std::string& folder);
