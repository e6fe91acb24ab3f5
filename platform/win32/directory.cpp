#include "platform/win32/directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/win32/file_fault.h"
#include "platform/win32/file_place.h"
#include "platform/win32/windows_path.h"

int _chdir(const char* path) {
    return chdir(win32::FileSystemPath(path).c_str());
}

int _mkdir(const char* path) {
    const std::string folder = win32::FileSystemPath(path);
    win32::FilePlace place;
    std::string error;
    if (!win32::FindToWrite(folder, place, error)) {
        win32::NoteFileFault(error);
        return -1;
    }
    if (mkdirat(place.Folder(), place.Name().c_str(), 0777) != 0) {
        if (errno != EEXIST) {
            win32::NoteFileFault(folder + ": " + std::strerror(errno));
        }
        return -1;
    }
    win32::NoteEntryMade(place.Path());
    return 0;
}
