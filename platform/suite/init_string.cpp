#include "platform/suite/init_string.h"

#include <vector>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_text.h"

namespace suite {
namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

/// Appends the names of `path` to `names`, walking back at "..".
void Walk(std::string_view path, std::vector<std::string_view>& names) {
    std::size_t start = 0;
    for (std::size_t pos = 0; pos <= path.size();) {
        const bool end = pos == path.size();
        if (end || IsSeparator(path[pos])) {
            const std::string_view name = path.substr(start, pos - start);
            if (name == ".." && !names.empty()) {
                names.pop_back();
            } else if (!name.empty() && name != "." && name != "..") {
                names.push_back(name);
            }
            start = pos + 1;
        }
        pos += end ? 1 : win32::CharLength(path, pos);
    }
}

/// One "name=value" of an initialisation string, as it stands in it.
struct Part {
    std::string_view name;
    std::string_view value;  ///< with its quotes
};

/// Where the value that starts at `start` ends: at a semicolon that is not within its quotes.
std::size_t ValueEnd(std::string_view text, std::size_t start) {
    const std::size_t first = text.find_first_not_of(" \t", start);
    std::size_t from = start;
    if (first != std::string_view::npos && (text[first] == '"' || text[first] == '\'')) {
        const std::size_t closing = text.find(text[first], first + 1);
        from = closing == std::string_view::npos ? first : closing;
    }
    const std::size_t end = text.find(';', from);
    return end == std::string_view::npos ? text.size() : end;
}

/// No byte looked for here (= ; and quotes) can be the second one of a character.
std::vector<Part> SplitParts(std::string_view text) {
    std::vector<Part> parts;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t equals = text.find('=', pos);
        if (equals == std::string_view::npos) {
            break;
        }
        const std::size_t end = ValueEnd(text, equals + 1);
        parts.push_back({win32::TrimBlanks(text.substr(pos, equals - pos)),
                         win32::TrimBlanks(text.substr(equals + 1, end - equals - 1))});
        pos = end + 1;
    }
    return parts;
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string Quoted(const std::string& value) {
    if (value.find_first_of(";\"'") == std::string::npos) {
        return value;
    }
    const char quote = value.find('"') == std::string::npos ? '"' : '\'';
    return quote + value + quote;
}

}  // namespace

std::string AbsolutePath(std::string_view folder, std::string_view path) {
    std::vector<std::string_view> names;
    if (path.empty() || !IsSeparator(path.front())) {
        Walk(folder, names);
    }
    Walk(path, names);
    std::string absolute;
    for (const std::string_view name : names) {
        absolute += '\\';
        absolute += name;
    }
    return absolute.empty() ? "\\" : absolute;
}

std::string WithAbsoluteDataSource(std::string_view folder, std::string_view initString) {
    std::string result(initString);
    const Part* dataSource = nullptr;
    bool isFile = false;
    const std::vector<Part> parts = SplitParts(initString);
    for (const Part& part : parts) {
        if (win32::EqualNoCase(part.name, "Data Source")) {
            dataSource = &part;
        } else if (win32::EqualNoCase(part.name, "Provider")) {
            isFile = win32::EqualNoCase(WithoutQuotes(part.value), "SQLite");
        }
    }
    if (isFile && dataSource != nullptr && !WithoutQuotes(dataSource->value).empty()) {
        const auto start = static_cast<std::size_t>(dataSource->value.data() - initString.data());
        result.replace(start, dataSource->value.size(),
                       Quoted(AbsolutePath(folder, WithoutQuotes(dataSource->value))));
    }
    return result;
}

}  // namespace suite
