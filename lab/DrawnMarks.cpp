#include "lab/DrawnMarks.h"

#include <algorithm>

#include "lab/Failure.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
std::string ContentOf(const std::string& profile) {
    std::string content;
    std::string error;
    bool missing = false;
    if (!win32::ReadFileWhole(win32::FileSystemPath(profile), content, error, &missing) &&
        !missing) {
        throw Failure(error);
    }
    return content;
}
}  // namespace

DrawnMarks::DrawnMarks(const std::string& profile) : text_(ContentOf(profile)) {}

std::set<std::string> DrawnMarks::Under(const std::string& key) const {
    std::set<std::string> names;
    std::string list;
    text_.Find(kSettingsSection, key, list);
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(win32::FindChar(list, kMarkSeparator, start), list.size());
        names.insert(list.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

}  // namespace lab
