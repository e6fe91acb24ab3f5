#pragma once

#include <string>
#include <string_view>

namespace console {

/// True when every byte belongs to a well-formed UTF-8 character (shortest form, no surrogates).
bool IsUtf8(std::string_view bytes);

/// A text file's bytes as UTF-8: UTF-8 with or without a byte order mark, else GBK. False, with the
/// reason in `error`, when the bytes are neither, or hold a zero byte.
bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error);

}  // namespace console
