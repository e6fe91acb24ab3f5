#include "platform/ap/AcApDocument.h"

#include <algorithm>

#include "platform/win32/windows_path.h"

AcAp::DocLockMode AcApDocument::lockMode() const {
    const auto strongest = std::max_element(locks_.begin(), locks_.end());
    return strongest != locks_.end() ? *strongest : AcAp::kNone;
}

void AcApDocument::noteFile() {
    const std::string path = win32::FileSystemPath(fileName_);
    std::error_code gone;
    fileTime_ = std::filesystem::last_write_time(path, gone);
    fileSize_ = std::filesystem::file_size(path, gone);
}

AcAp::FileState AcApDocument::fileState() const {
    if (untitled_) {
        return AcAp::kFileUnchanged;
    }
    const std::string path = win32::FileSystemPath(fileName_);
    std::error_code gone;
    const auto time = std::filesystem::last_write_time(path, gone);
    const auto size = std::filesystem::file_size(path, gone);
    if (gone) {
        return AcAp::kFileGone;
    }
    return time == fileTime_ && size == fileSize_ ? AcAp::kFileUnchanged : AcAp::kFileChanged;
}
