#pragma once

#include <string>
#include <string_view>

/// The system's ANSI code page is GBK (936) everywhere; the edges of the system convert.
namespace win32 {

/// True when every byte belongs to a well-formed UTF-8 character (shortest form, no surrogates).
bool IsUtf8(std::string_view bytes);
/// UTF-8 to GBK. A character outside GBK, or malformed UTF-8, becomes '?'.
std::string GbkFromUtf8(std::string_view utf8);
/// The same, false and `gbk` unchanged when the text cannot be represented exactly.
bool TryGbkFromUtf8(std::string_view utf8, std::string& gbk);
/// GBK to UTF-8. Bytes that are no GBK character become U+FFFD.
std::string Utf8FromGbk(std::string_view gbk);
/// GBK to UTF-16 and back, with the same replacements.
std::u16string Utf16FromGbk(std::string_view gbk);
std::string GbkFromUtf16(std::u16string_view utf16);
std::u16string Utf16FromUtf8(std::string_view utf8);
std::string Utf8FromUtf16(std::u16string_view utf16);

/// True for the first byte of a double-byte character (0x81 to 0xFE).
constexpr bool IsDbcsLeadByte(unsigned char byte) {
    return byte >= 0x81 && byte <= 0xFE;
}
/// Bytes of the character that starts at `pos`: 2 for a lead byte with a byte after it, else 1.
inline std::size_t CharLength(std::string_view gbk, std::size_t pos) {
    return IsDbcsLeadByte(static_cast<unsigned char>(gbk[pos])) && pos + 1 < gbk.size() ? 2 : 1;
}
/// Position of the single-byte character `c` at or after `from`, stepping by whole characters;
/// npos when there is none. `from` must be at the start of a character.
std::size_t FindChar(std::string_view gbk, char c, std::size_t from = 0);
/// Position of the last single-byte character `c`, stepping by whole characters; npos if none.
std::size_t FindLastChar(std::string_view gbk, char c);
/// A double-byte character counts once.
int CharacterCount(std::string_view gbk);
/// The longest part from the start that has at most `maxBytes` bytes and no half character.
std::string_view WholePrefix(std::string_view gbk, std::size_t maxBytes);
/// Without blanks, tabs and line ends around it; also for UTF-8.
std::string_view TrimBlanks(std::string_view text);

}  // namespace win32
