#pragma once

#include "platform/win32/win_types.h"

struct WIN32_FIND_DATA {
    DWORD dwFileAttributes;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    char cFileName[MAX_PATH];  ///< the name alone
};

/// Starts a search; the last name of `pattern` may hold '*' (any run of characters) and '?' (one
/// character, of one byte or two), and is compared without regard to case. "*.*" finds every name.
/// Entries come sorted by name without regard to case; "." and "..", and names that GBK cannot
/// write, are left out. INVALID_HANDLE_VALUE when nothing is found. The search is over the entries
/// as they were at its start.
HANDLE FindFirstFile(LPCSTR pattern, WIN32_FIND_DATA* data);
/// The next entry; FALSE, and `data` unchanged, after the last.
BOOL FindNextFile(HANDLE search, WIN32_FIND_DATA* data);
/// Ends a search. FALSE for anything that is no search.
BOOL FindClose(HANDLE search);
