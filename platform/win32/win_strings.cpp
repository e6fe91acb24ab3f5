#include "platform/win32/win_strings.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"

namespace {

/// Copies the converted text out as the two conversion functions do.
template <class Unit, class Text>
int HandOut(const Text& converted, Unit* target, int size) {
    const int needed = static_cast<int>(converted.size());
    if (size == 0) {
        return needed;
    }
    if (size < needed) {
        return 0;
    }
    std::copy(converted.begin(), converted.end(), target);
    return needed;
}

}  // namespace

int lstrlenA(LPCSTR text) {
    return text == nullptr ? 0 : static_cast<int>(std::strlen(text));
}

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide, int size) {
    if ((codePage != CP_ACP && codePage != CP_UTF8) || flags != 0 || text == nullptr) {
        return 0;
    }
    const std::size_t length = bytes < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(bytes);
    const std::string_view source(text, length);
    return HandOut(codePage == CP_UTF8 ? win32::Utf16FromUtf8(source) : win32::Utf16FromGbk(source),
                   wide, size);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int units, LPSTR text, int size,
                        LPCSTR defaultChar, BOOL* usedDefault) {
    if (codePage != CP_ACP || flags != 0 || wide == nullptr) {
        return 0;
    }
    const std::u16string_view source =
        units < 0 ? std::u16string_view(wide, std::char_traits<WCHAR>::length(wide) + 1)
                  : std::u16string_view(wide, static_cast<std::size_t>(units));
    std::string gbk;
    BOOL replaced = FALSE;
    const bool whole = win32::TryGbkFromUtf8(win32::Utf8FromUtf16(source), gbk);
    for (std::size_t pos = whole ? source.size() : 0; pos < source.size();) {
        const bool pair = source[pos] >= 0xD800 && source[pos] <= 0xDBFF && pos + 1 < source.size();
        const std::u16string_view character = source.substr(pos, pair ? 2 : 1);
        std::string converted;
        if (win32::TryGbkFromUtf8(win32::Utf8FromUtf16(character), converted)) {
            gbk += converted;
        } else {
            gbk += defaultChar == nullptr ? '?' : *defaultChar;
            replaced = TRUE;
        }
        pos += character.size();
    }
    if (usedDefault != nullptr) {
        *usedDefault = replaced;
    }
    return HandOut(gbk, text, size);
}

DWORD CharLowerBuffA(LPSTR text, DWORD length) {
    const std::string folded = win32::FoldCase({text, length});
    std::copy(folded.begin(), folded.end(), text);
    return length;
}

int _mbscmp(const unsigned char* left, const unsigned char* right) {
    return std::strcmp(reinterpret_cast<const char*>(left), reinterpret_cast<const char*>(right));
}
