#include "platform/win32/windows_path.h"

#include <sys/stat.h>

#include <algorithm>
#include <vector>

#include "platform/win32/code_page.h"
#include "platform/win32/folder_listings.h"

namespace win32 {
namespace {

/// The names of a path, without separators. A backslash may also be the second byte of a
/// character, a slash cannot.
std::vector<std::string_view> SplitNames(std::string_view windowsPath) {
    std::vector<std::string_view> names;
    std::size_t start = 0;
    for (std::size_t pos = 0; pos <= windowsPath.size();) {
        const bool end = pos == windowsPath.size();
        if (end || windowsPath[pos] == '\\' || windowsPath[pos] == '/') {
            if (pos > start) {
                names.push_back(windowsPath.substr(start, pos - start));
            }
            start = pos + 1;
        }
        pos += end ? 1 : CharLength(windowsPath, pos);
    }
    return names;
}

bool Exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

/// `folder` is empty for the current folder and "/" for the root.
std::string Join(const std::string& folder, const std::string& name) {
    return folder.empty() || folder == "/" ? folder + name : folder + "/" + name;
}

}  // namespace

std::string FileSystemPath(std::string_view windowsPath) {
    const std::vector<std::string_view> names = SplitNames(windowsPath);
    const bool absolute =
        !windowsPath.empty() && (windowsPath.front() == '\\' || windowsPath.front() == '/');

    // As it stands, cut after every name: the longest of these that exists needs no search.
    std::vector<std::string> asItStands{absolute ? "/" : ""};
    for (const std::string_view name : names) {
        asItStands.push_back(Join(asItStands.back(), Utf8FromGbk(name)));
    }
    std::size_t found = names.size();
    while (found > 0 && !Exists(asItStands[found])) {
        --found;
    }

    std::string path = asItStands[found];
    for (; found < names.size(); ++found) {
        const std::string exact = Utf8FromGbk(names[found]);
        if (const std::string next = Join(path, exact); Exists(next)) {
            path = next;
            continue;
        }
        const std::string other =
            FolderListings::Get().Find(path.empty() ? "." : path, names[found]);
        path = Join(path, other.empty() ? exact : other);
    }
    return path;
}

bool WindowsPath(std::string_view fileSystemPath, std::string& windowsPath) {
    std::string gbk;
    if (fileSystemPath.find('\\') != std::string_view::npos ||
        !TryGbkFromUtf8(fileSystemPath, gbk)) {
        return false;
    }
    std::replace(gbk.begin(), gbk.end(), '/', '\\');
    windowsPath = std::move(gbk);
    return true;
}

void NoteEntryMade(const std::string& fileSystemPath) {
    FolderListings::Get().NoteMade(fileSystemPath);
}

}  // namespace win32
