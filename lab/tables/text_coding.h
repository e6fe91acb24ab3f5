#pragma once

#include <string>
#include <string_view>

namespace lab {

/// A text file's bytes as UTF-8: UTF-8 with or without a byte order mark, UTF-16 with one, else
/// GB 18030, of which GBK is a part. False, with the reason in `error`, when the bytes are none of
/// these, or hold a zero character.
bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error);
/// The same of one line of a text that arrives line by line, which cannot be UTF-16.
bool DecodeLine(std::string_view bytes, std::string& utf8, std::string& error);

}  // namespace lab
