#pragma once

#include "platform/mfc/CString.h"
#include "platform/win32/find_file.h"

/// A search for files by a pattern, as FindFirstFile does it. FindFile looks for the first entry;
/// each FindNextFile makes one entry the current one and tells whether another follows it.
class CFileFind {
public:
    CFileFind() = default;
    ~CFileFind();
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;

    /// FALSE when nothing is found.
    BOOL FindFile(const char* pattern);
    BOOL FindNextFile();
    void Close();

    /// Of the current entry; empty before the first FindNextFile.
    CString GetFileName() const { return current_.cFileName; }

private:
    HANDLE search_ = INVALID_HANDLE_VALUE;
    bool hasNext_ = false;
    WIN32_FIND_DATA next_{};
    WIN32_FIND_DATA current_{};
};
