#pragma once

#include "platform/win32/win_types.h"

/// Handles of files, as far as programs use them to keep each other out of a file.

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD LOCKFILE_EXCLUSIVE_LOCK = 2;

struct SECURITY_ATTRIBUTES;
struct OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    DWORD Offset;
    DWORD OffsetHigh;
    HANDLE hEvent;
};

/// Opens the file under the Windows path for reading and writing, and makes an empty one where
/// there is none: `access` is to ask for both, `disposition` is OPEN_ALWAYS. Everybody else may go
/// on reading, writing and replacing it. INVALID_HANDLE_VALUE when it cannot be opened so.
HANDLE CreateFile(LPCSTR fileName, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES* security,
                  DWORD disposition, DWORD flags, HANDLE templateFile);

/// Locks the file for this process (flags LOCKFILE_EXCLUSIVE_LOCK); whatever the range, it is the
/// file as a whole. While another process has it locked the call waits, up to ten seconds; after
/// that it is a file fault, and FALSE. A lock also holds up the profile operations of other
/// processes that change the file, and nobody who reads it.
BOOL LockFileEx(HANDLE file, DWORD flags, DWORD reserved, DWORD bytesLow, DWORD bytesHigh,
                OVERLAPPED* range);
BOOL UnlockFileEx(HANDLE file, DWORD reserved, DWORD bytesLow, DWORD bytesHigh, OVERLAPPED* range);

/// Closes the file, and unlocks it.
BOOL CloseHandle(HANDLE file);
