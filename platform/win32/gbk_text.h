#pragma once

#include <string>
#include <string_view>

/// Helpers for GBK texts that go by whole characters.
namespace win32 {

/// Every letter of the code page that has a small form becomes it: Latin, and among the
/// double-byte characters full-width Latin, Greek, Cyrillic and Roman numerals.
std::string FoldCase(std::string_view gbk);
bool EqualNoCase(std::string_view left, std::string_view right);
/// Below, at or above 0 by the folded characters' codes; that is pinyin order for common words.
int CompareNoCase(std::string_view left, std::string_view right);

/// A double-byte character counts once.
int CharacterCount(std::string_view gbk);
/// The longest part from the start that has at most `maxBytes` bytes and no half character.
std::string_view WholePrefix(std::string_view gbk, std::size_t maxBytes);
/// Without blanks, tabs and line ends around it; also for UTF-8.
std::string_view TrimBlanks(std::string_view text);

}  // namespace win32
