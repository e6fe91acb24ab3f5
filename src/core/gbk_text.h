#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/win_types.h"

// The plug-in's texts are GBK: a character is one byte, or two of which the second may have any
// value that a single-byte character has, "\", "|" and "@" among them. So texts are walked and
// searched by whole characters.

/// Bytes of the character that starts at `pos`: 2 for a lead byte with a byte after it, else 1.
std::size_t CharLength(std::string_view text, std::size_t pos);
/// Position of the single-byte character `c` at or after `from`, which must be at the start of a
/// character; npos when there is none.
std::size_t FindChar(std::string_view text, char c, std::size_t from = 0);
/// Position of the last single-byte character `c`; npos when there is none.
std::size_t FindLastChar(std::string_view text, char c);

/// Splits at every whole character `separator`; the parts lose the blanks at their ends, and an
/// empty part stays in the list. False, and an empty list, when the text holds nothing but blanks.
bool SplitList(std::string_view text, char separator, std::vector<std::string>& list);

/// GBK as UTF-16, the way the database takes texts, and back. A character that the other does not
/// have becomes '?'.
std::basic_string<WCHAR> WideText(const std::string& gbk);
std::string NarrowText(const WCHAR* wide);
/// Every letter that has a small form becomes it, double-byte ones too, as file names compare.
std::string FoldCase(std::string text);

namespace gbk {
/// Text of a literal as a template argument.
template <std::size_t N>
struct Literal {
    // NOLINTNEXTLINE(google-explicit-constructor): made from a literal by the operator below
    constexpr Literal(const char (&literal)[N]) {
        for (std::size_t i = 0; i < N; ++i) {
            bytes[i] = literal[i];
        }
    }
    char bytes[N]{};
};
std::string FromUtf8(const char* utf8);
}  // namespace gbk

/// "钻孔"_gbk: the literal, UTF-8 in the source, as zero-terminated GBK bytes that live as long as
/// the program. Each literal is converted once.
template <gbk::Literal literal>
const char* operator""_gbk() {
    static const std::string converted = gbk::FromUtf8(literal.bytes);
    return converted.c_str();
}
