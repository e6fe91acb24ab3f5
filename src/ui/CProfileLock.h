#pragma once

#include <string>

#include "platform/win32/file_handle.h"

/// Keeps other programs from changing a profile, so that what is read there, changed and written
/// back is one step. One at a time for a profile. Where it cannot be locked, the write that follows
/// fails and is told.
class CProfileLock {
public:
    explicit CProfileLock(const std::string& profilePath);
    ~CProfileLock();
    CProfileLock(const CProfileLock&) = delete;
    CProfileLock& operator=(const CProfileLock&) = delete;

private:
    HANDLE file_;
    OVERLAPPED range_{};
};
