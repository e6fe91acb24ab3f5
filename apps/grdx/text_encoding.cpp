#include "apps/grdx/text_encoding.h"

#include "platform/win32/code_page.h"

namespace console {

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Bounds that the second byte of a character keeps, which exclude long forms, surrogates and
/// characters above U+10FFFF; and how many bytes follow the first.
struct SequenceForm {
    int following = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
};

/// False for a byte that starts no character.
bool FormOf(unsigned char first, SequenceForm& form) {
    if (first < 0x80) {
        form.following = 0;
    } else if (first >= 0xC2 && first <= 0xDF) {
        form.following = 1;
    } else if (first >= 0xE0 && first <= 0xEF) {
        form.following = 2;
        form.low = first == 0xE0 ? 0xA0 : 0x80;
        form.high = first == 0xED ? 0x9F : 0xBF;
    } else if (first >= 0xF0 && first <= 0xF4) {
        form.following = 3;
        form.low = first == 0xF0 ? 0x90 : 0x80;
        form.high = first == 0xF4 ? 0x8F : 0xBF;
    } else {
        return false;
    }
    return true;
}

bool Within(unsigned char byte, unsigned char low, unsigned char high) {
    return byte >= low && byte <= high;
}
}  // namespace

bool IsUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        SequenceForm form;
        if (!FormOf(static_cast<unsigned char>(bytes[i]), form) ||
            bytes.size() - i <= static_cast<std::size_t>(form.following)) {
            return false;
        }
        ++i;
        for (int k = 0; k < form.following; ++k, ++i) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            if (!(k == 0 ? Within(byte, form.low, form.high) : Within(byte, 0x80, 0xBF))) {
                return false;
            }
        }
    }
    return true;
}

bool DecodeText(std::string_view bytes, std::string& utf8, std::string& error) {
    if (bytes.find('\0') != std::string_view::npos) {
        error = "the file is no text in UTF-8 or GBK: it holds zero bytes";
        return false;
    }
    const bool marked = bytes.starts_with(kByteOrderMark);
    const std::string_view text = marked ? bytes.substr(kByteOrderMark.size()) : bytes;
    if (IsUtf8(text)) {
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
