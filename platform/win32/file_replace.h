#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace win32 {

/// How safe a file is when it has been written. One that is with the system survives the end of the
/// program, one on the disk also that of the machine.
enum class Durability { kWithSystem, kOnDisk };

/// Replaces the file at `fileSystemPath` (UTF-8, as FileSystemPath gives it) by one with `content`,
/// or makes it: a reader sees the old file or the new one, whole, also after a process or, with
/// kOnDisk, the machine was stopped in between. A symbolic link stays and its target is replaced;
/// permissions are kept, and the owner where we may; those of a new file are the usual ones. A
/// write-protected file and anything but an ordinary file is refused.
///
/// False, with path and reason in `error` (UTF-8) and the old file untouched; only a folder that
/// cannot be flushed fails when the new file is there already. The temporary file beside the old
/// one is removed; one that a killed process has left (".replace-*.tmp") goes with the next call
/// for the same file.
///
/// kOnDisk costs what the disk costs, about 3 ms on an SSD against 0.3 ms: it is for what a person
/// saves. Files that a command makes by the thousand and can make again go without.
bool ReplaceFileWhole(const std::string& fileSystemPath, std::string_view content,
                      std::string& error, Durability durability = Durability::kWithSystem);

/// Gives the content of a file from its start, piece by piece; an empty piece is its end. False,
/// with errno, when it cannot.
using ContentSource = std::function<bool(std::string_view& piece)>;
/// The same with content that need not be in memory whole.
bool ReplaceFileWhole(const std::string& fileSystemPath, const ContentSource& content,
                      std::string& error, Durability durability = Durability::kWithSystem);

/// Reads the whole file. Anything but an ordinary file is refused at once: a pipe or a device might
/// have no end. False with path and reason in `error`. For a missing file the reason is
/// set as well, and `missing`, if not null, tells it from other failures.
bool ReadFileWhole(const std::string& fileSystemPath, std::string& content, std::string& error,
                   bool* missing = nullptr);

}  // namespace win32
