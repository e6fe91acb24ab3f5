#include "platform/win32/file_handle.h"

#include <fcntl.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/win32/file_fault.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/file_place.h"
#include "platform/win32/windows_path.h"

namespace {

struct FileHandle {
    std::string path;
    win32::OpenFile file;
    std::optional<win32::FileLock> lock;
};

/// Null for what CreateFile has not opened.
FileHandle* Opened(HANDLE handle) {
    return handle == INVALID_HANDLE_VALUE ? nullptr : static_cast<FileHandle*>(handle);
}

}  // namespace

HANDLE CreateFile(LPCSTR fileName, DWORD access, DWORD /*shareMode*/,
                  SECURITY_ATTRIBUTES* /*security*/, DWORD disposition, DWORD /*flags*/,
                  HANDLE /*templateFile*/) {
    if (access != (GENERIC_READ | GENERIC_WRITE) || disposition != OPEN_ALWAYS) {
        return INVALID_HANDLE_VALUE;
    }
    auto handle = std::make_unique<FileHandle>();
    handle->path = win32::FileSystemPath(fileName);
    win32::FilePlace place;
    std::string refusal;
    if (!win32::FindToWrite(handle->path, place, refusal)) {
        return INVALID_HANDLE_VALUE;
    }
    constexpr int kFlags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    handle->file = win32::OpenFile(openat(place.Folder(), place.Name().c_str(), kFlags, 0666));
    return handle->file.Get() < 0 ? INVALID_HANDLE_VALUE : handle.release();
}

BOOL LockFileEx(HANDLE file, DWORD flags, DWORD /*reserved*/, DWORD /*bytesLow*/,
                DWORD /*bytesHigh*/, OVERLAPPED* /*range*/) {
    FileHandle* const handle = Opened(file);
    if (handle == nullptr || flags != LOCKFILE_EXCLUSIVE_LOCK) {
        return FALSE;
    }
    handle->lock.emplace(handle->path);
    if (!handle->lock->Fault().empty()) {
        win32::NoteFileFault(handle->lock->Fault());
        handle->lock.reset();
    }
    return handle->lock ? TRUE : FALSE;
}

BOOL UnlockFileEx(HANDLE file, DWORD /*reserved*/, DWORD /*bytesLow*/, DWORD /*bytesHigh*/,
                  OVERLAPPED* /*range*/) {
    FileHandle* const handle = Opened(file);
    if (handle == nullptr || !handle->lock) {
        return FALSE;
    }
    handle->lock.reset();
    return TRUE;
}

BOOL CloseHandle(HANDLE file) {
    const std::unique_ptr<FileHandle> handle(Opened(file));
    return handle != nullptr ? TRUE : FALSE;
}
