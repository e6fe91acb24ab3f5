#pragma once

#include <string>

namespace lab {

/// Number and name of a project in GBK, as table and profile hold them. Failure when the text is
/// too long for the table, or holds what GBK or a profile cannot; a number also names a folder
/// below the suite's.
std::string CheckedProjectNumber(const std::string& utf8);
std::string CheckedProjectName(const std::string& utf8);

/// A value that reads back as it is: profiles take blanks and quotes off its ends.
std::string ProfileValue(const std::string& gbk);

}  // namespace lab
