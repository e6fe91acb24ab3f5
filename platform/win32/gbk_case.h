#pragma once

#include <string>
#include <string_view>

/// GBK texts without regard to case.
namespace win32 {

/// Every letter of the code page that has a small form becomes it: Latin, and among the
/// double-byte characters full-width Latin, Greek, Cyrillic and Roman numerals.
std::string FoldCase(std::string_view gbk);
bool EqualNoCase(std::string_view left, std::string_view right);
/// Below, at or above 0 by the folded characters' codes; that is pinyin order for common words.
int CompareNoCase(std::string_view left, std::string_view right);

}  // namespace win32
