#pragma once

#include <string>
#include <string_view>

/// Windows paths on this file system. A Windows path is GBK with backslashes (slashes count as
/// such, several in a row as one); a path that starts with one is absolute, any other is relative
/// to the current folder. There are no drives: "C:" is a name like any other.
namespace win32 {

/// The path by which the file system knows `windowsPath` (UTF-8, slashes). Each name is looked for
/// as it stands, then without regard to case (among several, the first in byte order); a name that
/// does not exist is taken as it stands. So the result may be used to open as well as to create.
/// Names of the file system that GBK cannot write are never found by it.
///
/// Costs a few system calls per path, whatever the size of the folders: listings are kept as long
/// as a folder's modification time stands.
std::string FileSystemPath(std::string_view windowsPath);

/// The Windows path for `fileSystemPath` (UTF-8). False, and `windowsPath` unchanged, when a name
/// has no GBK form or contains a backslash.
bool WindowsPath(std::string_view fileSystemPath, std::string& windowsPath);

/// To be called after this process made the entry `fileSystemPath`, so that the listing of its
/// folder is amended instead of read again. Without the call all is as correct, but slower.
void NoteEntryMade(const std::string& fileSystemPath);

}  // namespace win32
