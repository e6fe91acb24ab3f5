#include "lab/tables/text_coding.h"

#include <iconv.h>

#include <cstdint>
#include <utility>

#include "platform/win32/code_page.h"

namespace lab {

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// False, and `utf8` unchanged, when the bytes are no text in that coding.
bool Convert(std::string_view bytes, const char* coding, std::string& utf8) {
    const iconv_t converter = iconv_open("UTF-8", coding);
    if (reinterpret_cast<std::intptr_t>(converter) == -1) {
        return false;
    }
    std::string converted(bytes.size() * 2 + 4, '\0');  // no character grows to more
    char* in = const_cast<char*>(bytes.data());
    char* out = converted.data();
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = converted.size();
    const std::size_t result = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (result == static_cast<std::size_t>(-1) || inLeft != 0) {
        return false;
    }
    converted.resize(converted.size() - outLeft);
    utf8 = std::move(converted);
    return true;
}
}  // namespace

bool DecodeLine(std::string_view bytes, std::string& utf8, std::string& error) {
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
    if (marked || !Convert(text, "GB18030", utf8)) {
        error = "the file is neither UTF-8 nor GBK";
        return false;
    }
    return true;
}

bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error) {
    const bool little = bytes.starts_with("\xFF\xFE");
    if (!little && !bytes.starts_with("\xFE\xFF")) {
        return DecodeLine(bytes, utf8, error);
    }
    std::string converted;
    if (!Convert(bytes.substr(2), little ? "UTF-16LE" : "UTF-16BE", converted) ||
        converted.find('\0') != std::string::npos) {
        error = "the file is marked as UTF-16 and is broken";
        return false;
    }
    utf8 = std::move(converted);
    return true;
}

}  // namespace lab
