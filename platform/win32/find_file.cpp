#include "platform/win32/find_file.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"
#include "platform/win32/windows_path.h"

namespace {

struct Found {
    std::string folded;  ///< name by which entries are matched and sorted
    std::string name;    ///< GBK
    std::string path;    ///< UTF-8
};

struct Search {
    std::vector<Found> entries;
    std::size_t next = 0;
};

std::map<HANDLE, std::unique_ptr<Search>>& Searches() {
    static std::map<HANDLE, std::unique_ptr<Search>> searches;
    return searches;
}

/// Both texts are folded. On a mismatch the last '*' takes one character more and all is tried
/// from there, so the time is bounded by the product of the lengths.
bool Matches(std::string_view pattern, std::string_view name) {
    constexpr std::size_t kNone = std::string_view::npos;
    std::size_t p = 0;
    std::size_t n = 0;
    std::size_t afterStar = kNone;
    std::size_t starEnd = 0;
    while (n < name.size()) {
        const std::size_t length = win32::CharLength(name, n);
        if (p < pattern.size() && pattern[p] == '*') {
            afterStar = ++p;
            starEnd = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            n += length;
        } else if (pattern.substr(p, length) == name.substr(n, length)) {
            p += length;
            n += length;
        } else if (afterStar != kNone) {
            p = afterStar;
            starEnd += win32::CharLength(name, starEnd);
            n = starEnd;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == kNone;
}

/// Position after the last separator.
std::size_t NameStart(std::string_view pattern) {
    std::size_t start = 0;
    for (std::size_t pos = 0; pos < pattern.size(); pos += win32::CharLength(pattern, pos)) {
        if (pattern[pos] == '\\' || pattern[pos] == '/') {
            start = pos + 1;
        }
    }
    return start;
}

std::vector<Found> Collect(std::string_view pattern) {
    const std::size_t nameStart = NameStart(pattern);
    const std::string_view folderPart = pattern.substr(0, nameStart);
    const std::string folder = folderPart.empty() ? "." : win32::FileSystemPath(folderPart);
    std::string wanted = win32::FoldCase(pattern.substr(nameStart));
    if (wanted == "*.*") {
        wanted = "*";
    }
    std::vector<Found> entries;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const std::string_view utf8 = entry->d_name;
        Found found;
        if (utf8 == "." || utf8 == ".." || !win32::TryGbkFromUtf8(utf8, found.name)) {
            continue;
        }
        found.folded = win32::FoldCase(found.name);
        if (Matches(wanted, found.folded)) {
            found.path = folder;
            found.path.append("/").append(utf8);
            entries.push_back(std::move(found));
        }
    }
    std::sort(entries.begin(), entries.end(), [](const Found& left, const Found& right) {
        return std::tie(left.folded, left.name) < std::tie(right.folded, right.name);
    });
    return entries;
}

void Fill(const Found& found, WIN32_FIND_DATA& data) {
    struct stat status {};
    const bool known = stat(found.path.c_str(), &status) == 0;
    const auto size = known ? static_cast<std::uint64_t>(status.st_size) : 0;
    data = {};
    data.dwFileAttributes =
        known && S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32U);
    data.nFileSizeLow = static_cast<DWORD>(size);
    // A name has at most 255 bytes in the file system's form, which is never the shorter one.
    std::memcpy(data.cFileName, found.name.c_str(), found.name.size() + 1);
}

}  // namespace

HANDLE FindFirstFile(LPCSTR pattern, WIN32_FIND_DATA* data) {
    auto search = std::make_unique<Search>();
    search->entries = Collect(pattern);
    if (search->entries.empty()) {
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = search.get();
    Searches().emplace(handle, std::move(search));
    FindNextFile(handle, data);
    return handle;
}

BOOL FindNextFile(HANDLE search, WIN32_FIND_DATA* data) {
    const auto running = Searches().find(search);
    if (running == Searches().end() || running->second->next == running->second->entries.size()) {
        return FALSE;
    }
    Fill(running->second->entries[running->second->next++], *data);
    return TRUE;
}

BOOL FindClose(HANDLE search) {
    return Searches().erase(search) != 0 ? TRUE : FALSE;
}
