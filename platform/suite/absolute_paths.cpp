#include "platform/suite/absolute_paths.h"

#include <vector>

#include "platform/oledb/InitString.h"
#include "platform/win32/code_page.h"

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
    oledb::InitString properties;
    std::string fault;
    const bool readable = properties.Parse(initString, fault);
    const std::string* const provider = properties.Find("Provider");
    const std::string* const source = properties.Find("Data Source");
    const bool isFile = readable && provider != nullptr && source != nullptr && !source->empty() &&
                        oledb::InitString::SameKeyword(*provider, "SQLite");
    return isFile ? properties.With("Data Source", AbsolutePath(folder, *source))
                  : std::string(initString);
}

}  // namespace suite
