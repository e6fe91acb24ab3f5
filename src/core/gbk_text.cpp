#include "src/core/gbk_text.h"

#include "platform/win32/win_strings.h"

namespace {

constexpr const char* kBlanks = " \t\r\n";

bool IsLeadByte(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x81 && value <= 0xFE;
}

// A blank byte is never the trail byte of a double-byte character.
std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// A text has at most as many units as bytes; the terminator is converted along and cut off.
std::basic_string<WCHAR> Widened(UINT codePage, const char* text) {
    const int length = lstrlenA(text) + 1;
    std::basic_string<WCHAR> wide(static_cast<std::size_t>(length), WCHAR{});
    const int units = MultiByteToWideChar(codePage, 0, text, length, wide.data(), length);
    wide.resize(units > 0 ? static_cast<std::size_t>(units) - 1 : 0);
    return wide;
}

}  // namespace

std::size_t CharLength(std::string_view text, std::size_t pos) {
    return IsLeadByte(text[pos]) && pos + 1 < text.size() ? 2 : 1;
}

std::size_t FindChar(std::string_view text, char c, std::size_t from) {
    for (std::size_t pos = from; pos < text.size(); pos += CharLength(text, pos)) {
        if (text[pos] == c) {
            return pos;
        }
    }
    return std::string_view::npos;
}

std::size_t FindLastChar(std::string_view text, char c) {
    std::size_t last = std::string_view::npos;
    for (std::size_t pos = FindChar(text, c); pos != std::string_view::npos;
         pos = FindChar(text, c, pos + 1)) {
        last = pos;
    }
    return last;
}

bool SplitList(std::string_view text, char separator, std::vector<std::string>& list) {
    list.clear();
    std::string_view rest = Trimmed(text);
    if (rest.empty()) {
        return false;
    }
    for (std::size_t end = FindChar(rest, separator); end != std::string_view::npos;
         end = FindChar(rest, separator)) {
        list.emplace_back(Trimmed(rest.substr(0, end)));
        rest = rest.substr(end + 1);
    }
    list.emplace_back(Trimmed(rest));
    return true;
}

std::basic_string<WCHAR> WideText(const std::string& gbk) {
    return Widened(CP_ACP, gbk.c_str());
}

std::string NarrowText(const WCHAR* wide) {
    const std::size_t units = std::char_traits<WCHAR>::length(wide);
    std::string text(2 * units + 1, '\0');
    const int bytes = WideCharToMultiByte(CP_ACP, 0, wide, static_cast<int>(units), text.data(),
                                          static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(bytes));
    return text;
}

std::string FoldCase(std::string text) {
    CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

std::string gbk::FromUtf8(const char* utf8) {
    return NarrowText(Widened(CP_UTF8, utf8).c_str());
}
