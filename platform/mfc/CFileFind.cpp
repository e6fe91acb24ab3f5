#include "platform/mfc/CFileFind.h"

CFileFind::~CFileFind() {
    Close();
}

BOOL CFileFind::FindFile(const char* pattern) {
    Close();
    current_ = {};
    search_ = ::FindFirstFile(pattern, &next_);
    hasNext_ = search_ != INVALID_HANDLE_VALUE;
    return hasNext_ ? TRUE : FALSE;
}

BOOL CFileFind::FindNextFile() {
    if (!hasNext_) {
        return FALSE;
    }
    current_ = next_;
    hasNext_ = ::FindNextFile(search_, &next_) != FALSE;
    return hasNext_ ? TRUE : FALSE;
}

void CFileFind::Close() {
    if (search_ != INVALID_HANDLE_VALUE) {
        FindClose(search_);
        search_ = INVALID_HANDLE_VALUE;
        hasNext_ = false;
    }
}
