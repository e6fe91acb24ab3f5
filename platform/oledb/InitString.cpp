#include "platform/oledb/InitString.h"

#include <algorithm>

#include "platform/win32/code_page.h"

namespace oledb {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

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

std::string InitString::Written(std::string_view value) {
    const bool bare = !value.empty() && win32::TrimBlanks(value) == value &&
                      value.find_first_of(";\"'") == std::string_view::npos;
    if (bare) return std::string(value);
    std::string quoted = "\"";
    for (const char c : value) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

bool InitString::Parse(std::string_view text, std::string& error) {
    entries_.clear();
    text_ = text;
    std::string_view rest = text_;
    while (!(rest = win32::TrimBlanks(rest)).empty()) {
        if (rest.front() == ';') {
            rest.remove_prefix(1);
            continue;
        }
        const std::size_t equals = rest.find('=');
        const std::string_view keyword = win32::TrimBlanks(rest.substr(0, equals));
        if (equals == std::string_view::npos || keyword.empty() ||
            keyword.find(';') != std::string_view::npos) {
            // What follows a value may be the rest of a password.
            error = "initialisation string: no keyword and '=' " +
                    (entries_.empty() ? "at \"" + std::string(rest.substr(0, rest.find(';'))) + "\""
                                      : "behind the value of " + entries_.back().keyword);
            return false;
        }
        const auto start = static_cast<std::size_t>(rest.data() + equals + 1 - text_.data());
        Entry entry{std::string(keyword), "", start, 0};
        rest = win32::TrimBlanks(rest.substr(equals + 1));
        if (!rest.empty() && (rest.front() == '"' || rest.front() == '\'')) {
            if (!TakeQuoted(rest, entry.value)) {
                error = "initialisation string: quotes around the value of " + entry.keyword +
                        " do not match";
                return false;
            }
        } else {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            entry.value = win32::TrimBlanks(rest.substr(0, end));
            rest.remove_prefix(end);
        }
        const char* const end = rest.empty() ? text_.data() + text_.size() : rest.data();
        entry.size = static_cast<std::size_t>(end - text_.data()) - start;
        entries_.push_back(std::move(entry));
    }
    return true;
}

const InitString::Entry* InitString::FindEntry(std::string_view keyword) const {
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const Entry& entry) {
        return SameKeyword(entry.keyword, keyword);
    });
    return found == entries_.rend() ? nullptr : &*found;
}

const std::string* InitString::Find(std::string_view keyword) const {
    const Entry* const entry = FindEntry(keyword);
    return entry != nullptr ? &entry->value : nullptr;
}

std::string InitString::With(std::string_view keyword, std::string_view value) const {
    const Entry* const entry = FindEntry(keyword);
    if (entry == nullptr) return text_;
    const std::string_view part = std::string_view(text_).substr(entry->start, entry->size);
    const std::string_view old = win32::TrimBlanks(part);
    const std::size_t before = old.empty() ? 0 : static_cast<std::size_t>(old.data() - part.data());
    return std::string(text_).replace(entry->start + before, old.size(), Written(value));
}

}  // namespace oledb
