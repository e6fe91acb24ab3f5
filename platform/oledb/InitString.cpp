#include "platform/oledb/InitString.h"

#include <algorithm>

namespace oledb {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Takes a quoted value off the front of `rest`; false when its end is missing or something
/// other than a separator follows it.
bool TakeQuoted(std::string_view& rest, std::string& value) {
    const char quote = rest.front();
    std::size_t at = 1;
    for (; at < rest.size(); ++at) {
        if (rest[at] == quote) {
            if (at + 1 >= rest.size() || rest[at + 1] != quote) break;
            ++at;
        }
        value.push_back(rest[at]);
    }
    if (at >= rest.size()) return false;
    rest.remove_prefix(at + 1);
    const std::size_t next = std::min(rest.find_first_not_of(kBlanks), rest.size());
    rest.remove_prefix(next);
    return rest.empty() || rest.front() == ';';
}

}  // namespace

bool InitString::SameKeyword(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

bool InitString::Parse(std::string_view utf8, std::string& error) {
    entries_.clear();
    std::string_view rest = utf8;
    while (!(rest = Trimmed(rest)).empty()) {
        if (rest.front() == ';') {
            rest.remove_prefix(1);
            continue;
        }
        const std::size_t equals = rest.find('=');
        const std::string_view keyword = Trimmed(rest.substr(0, equals));
        if (equals == std::string_view::npos || keyword.empty() ||
            keyword.find(';') != std::string_view::npos) {
            error = "initialisation string: no keyword and '=' at \"" + std::string(rest) + "\"";
            return false;
        }
        rest = Trimmed(rest.substr(equals + 1));
        std::string value;
        if (!rest.empty() && (rest.front() == '"' || rest.front() == '\'')) {
            if (!TakeQuoted(rest, value)) {
                error = "initialisation string: quotes around the value of " +
                        std::string(keyword) + " do not match";
                return false;
            }
        } else {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            value = Trimmed(rest.substr(0, end));
            rest.remove_prefix(end);
        }
        entries_.emplace_back(keyword, std::move(value));
    }
    return true;
}

const std::string* InitString::Find(std::string_view keyword) const {
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const auto& entry) {
        return SameKeyword(entry.first, keyword);
    });
    return found == entries_.rend() ? nullptr : &found->second;
}

}  // namespace oledb
