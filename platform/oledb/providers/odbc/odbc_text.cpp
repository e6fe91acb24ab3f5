#include "platform/oledb/providers/odbc/odbc_text.h"

#include <algorithm>
#include <cstring>

#include "platform/win32/code_page.h"

namespace oledb::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

std::u16string WideText(std::string_view utf8) {
    const bool ascii = std::all_of(utf8.begin(), utf8.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return ascii ? std::u16string(utf8.begin(), utf8.end()) : win32::Utf16FromUtf8(utf8);
}

std::string Utf8Text(const void* units, std::size_t count) {
    std::u16string wide(count, u'\0');
    std::memcpy(wide.data(), units, count * sizeof(char16_t));
    if (std::all_of(wide.begin(), wide.end(), [](char16_t c) { return c < 0x80; })) {
        std::string narrow;
        for (const char16_t c : wide) narrow.push_back(static_cast<char>(c));
        return narrow;
    }
    return win32::Utf8FromUtf16(wide);
}

}  // namespace oledb::odbc
