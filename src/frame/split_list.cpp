#include "src/frame/split_list.h"

#include "platform/win32/code_page.h"

namespace {

constexpr const char* kBlanks = " \t\r\n";

// A blank byte is never the trail byte of a double-byte character.
std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

bool SplitList(std::string_view text, char separator, std::vector<std::string>& list) {
    list.clear();
    std::string_view rest = Trimmed(text);
    if (rest.empty()) {
        return false;
    }
    for (std::size_t end = win32::FindChar(rest, separator); end != std::string_view::npos;
         end = win32::FindChar(rest, separator)) {
        list.emplace_back(Trimmed(rest.substr(0, end)));
        rest = rest.substr(end + 1);
    }
    list.emplace_back(Trimmed(rest));
    return true;
}
