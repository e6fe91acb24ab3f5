#pragma once

#include <string>
#include <string_view>

namespace console {

/// A text file's bytes as UTF-8: UTF-8 with or without a byte order mark, else GBK. False, with the
/// reason in `error`, when the bytes are neither, or hold a zero byte.
bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error);

}  // namespace console
