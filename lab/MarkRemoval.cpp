#include "lab/MarkRemoval.h"

#include <algorithm>

#include "lab/Failure.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
std::string Content(const std::string& path) {
    std::string content;
    std::string error;
    bool missing = false;
    if (!win32::ReadFileWhole(path, content, error, &missing) && !missing) {
        throw Failure(error);
    }
    return content;
}
}  // namespace

MarkRemoval::MarkRemoval(const std::string& profile)
    : path_(win32::FileSystemPath(profile)), lock_(path_), before_(Content(path_)), text_(before_) {
    if (!lock_.Fault().empty()) {
        throw Failure(lock_.Fault());
    }
}

MarkRemoval::~MarkRemoval() {
    if (written_) {
        std::string error;
        win32::ReplaceFileWhole(path_, before_, error);  // else they count as not drawn: no harm
    }
}

void MarkRemoval::Remove(const std::string& key, const std::string& name) {
    std::string value;
    if (!text_.Find(kSettingsSection, key, value)) {
        return;
    }
    std::string kept;
    bool found = false;
    for (std::size_t start = 0; start < value.size();) {
        const std::size_t end =
            std::min(win32::FindChar(value, kMarkSeparator, start), value.size());
        const std::string mark = value.substr(start, end - start);
        if (mark == name) {
            found = true;
        } else {
            kept += (kept.empty() ? "" : std::string(1, kMarkSeparator)) + mark;
        }
        start = end + 1;
    }
    if (found) {
        changed_ = text_.Set(kSettingsSection, key, kept) || changed_;
    }
}

void MarkRemoval::Write() {
    std::string error;
    if (changed_ && !win32::ReplaceFileWhole(path_, text_.Text(), error)) {
        throw Failure(error);
    }
    written_ = changed_;
}

}  // namespace lab
