#include "platform/win32/directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/win32/file_fault.h"
#include "platform/win32/windows_path.h"

int _chdir(const char* path) {
    return chdir(win32::FileSystemPath(path).c_str());
}

int _mkdir(const char* path) {
    const std::string folder = win32::FileSystemPath(path);
    if (mkdir(folder.c_str(), 0777) != 0) {
        if (errno != EEXIST) {
            win32::NoteFileFault(folder + ": " + std::strerror(errno));
        }
        return -1;
    }
    win32::NoteEntryMade(folder);
    return 0;
}
