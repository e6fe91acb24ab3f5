#pragma once

#include <cstddef>
#include <string>

#include "platform/win32/code_page.h"

namespace gbk_literal {
/// Text of a literal as a template argument.
template <std::size_t N>
struct Text {
    // NOLINTNEXTLINE(google-explicit-constructor): made from a literal by the operator below
    constexpr Text(const char (&literal)[N]) {
        for (std::size_t i = 0; i < N; ++i) {
            bytes[i] = literal[i];
        }
    }
    char bytes[N]{};
};
}  // namespace gbk_literal

/// "钻孔"_gbk: the literal, UTF-8 in the source, as zero-terminated GBK bytes that live as long as
/// the program. Each literal is converted once. The compilers' own execution character set would
/// do as well but is not offered by all of them.
template <gbk_literal::Text literal>
const char* operator""_gbk() {
    static const std::string converted = win32::GbkFromUtf8(literal.bytes);
    return converted.c_str();
}
