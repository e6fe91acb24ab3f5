#pragma once

#include <string>

/// The chart folder of the current project, with a backslash at its end; nothing is created. The
/// part before "output" is empty when the suite knows no registered folder.
std::string ChartFolder();

/// Creates what is missing of the chart folder and makes it the current directory. False, after
/// telling the user, when the suite knows no registered folder or a folder cannot be made.
bool MakeChartFolder(std::string& folder);
