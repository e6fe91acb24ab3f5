#include "apps/grdx/text_encoding.h"

#include "platform/win32/code_page.h"

namespace console {

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
}  // namespace

bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error) {
    if (bytes.find('\0') != std::string_view::npos) {
        error = "the file is no text in UTF-8 or GBK: it holds zero bytes";
        return false;
    }
    const bool marked = bytes.starts_with(kByteOrderMark);
    const std::string_view text = marked ? bytes.substr(kByteOrderMark.size()) : bytes;
    if (win32::IsUtf8(text)) {
        utf8 = text;
        return true;
    }
    std::string converted = win32::Utf8FromGbk(text);
    if (marked || converted.find(kReplacement) != std::string::npos) {
        error = "the file is neither UTF-8 nor GBK";
        return false;
    }
    utf8 = std::move(converted);
    return true;
}

}  // namespace console
