#pragma once

#include <string>

/// 1 when the project with that index still has that number (GBK, compared byte for byte); else 0
/// after telling the user why.
int CheckProjectNumber(int projectIndex, const std::string& projectNumber);
