#include "platform/ap/AcApDocument.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "platform/db/AcDbDatabase.h"
#include "platform/win32/windows_path.h"

AcApDocument::AcApDocument(std::unique_ptr<AcDbDatabase> database)
    : database_(std::move(database)) {}

AcApDocument::~AcApDocument() = default;

AcAp::DocLockMode AcApDocument::lockMode() const {
    const auto strongest = std::max_element(locks_.begin(), locks_.end());
    return strongest != locks_.end() ? *strongest : AcAp::kNone;
}

bool AcApDocument::readFileMark(FileMark& mark) const {
    const std::string path = win32::FileSystemPath(fileName_);
    std::error_code gone;
    mark.time = std::filesystem::last_write_time(path, gone).time_since_epoch().count();
    mark.size = std::filesystem::file_size(path, gone);
    return !gone;
}

void AcApDocument::noteFile() {
    readFileMark(file_);
}

AcAp::FileState AcApDocument::fileState() const {
    if (untitled_) {
        return AcAp::kFileUnchanged;
    }
    FileMark now;
    if (!readFileMark(now)) {
        return AcAp::kFileGone;
    }
    return now == file_ ? AcAp::kFileUnchanged : AcAp::kFileChanged;
}
