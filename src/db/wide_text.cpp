#include "src/db/wide_text.h"

#include "platform/win32/win_strings.h"

std::basic_string<WCHAR> WideText(const std::string& text) {
    // A text has at most as many units as bytes; the terminator is converted along and cut off.
    std::basic_string<WCHAR> wide(text.size() + 1, WCHAR{});
    const int length = lstrlenA(text.c_str()) + 1;
    const int units = MultiByteToWideChar(CP_ACP, 0, text.c_str(), length, wide.data(),
                                          static_cast<int>(wide.size()));
    wide.resize(units > 0 ? static_cast<std::size_t>(units) - 1 : 0);
    return wide;
}
