#include "src/ui/CProfileLock.h"

namespace {
/// The byte that is locked lies beyond any content, which stays readable for everybody.
constexpr DWORD kBeyondContent = 0x7FFFFFFF;
}  // namespace

CProfileLock::CProfileLock(const std::string& profilePath)
    : file_(CreateFile(profilePath.c_str(), GENERIC_READ | GENERIC_WRITE,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr)) {
    range_.Offset = kBeyondContent;
    if (file_ != INVALID_HANDLE_VALUE) {
        LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &range_);
    }
}

CProfileLock::~CProfileLock() {
    if (file_ != INVALID_HANDLE_VALUE) {
        UnlockFileEx(file_, 0, 1, 0, &range_);
        CloseHandle(file_);
    }
}
