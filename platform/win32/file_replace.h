#pragma once

#include <string>
#include <string_view>

namespace win32 {

/// Replaces the file at `fileSystemPath` (UTF-8, as FileSystemPath gives it) by one with `content`,
/// or makes it: a reader sees the old file or the new one, whole. A symbolic link stays and its
/// target is replaced; permissions are kept, those of a new file are the usual ones. A write-
/// protected file and anything but an ordinary file is refused.
///
/// False, with path and reason in `error` (UTF-8) and the old file untouched. The temporary file
/// beside the old one is removed; one left by a killed process is named ".replace-*.tmp".
/// The content is handed to the system, not forced to the disk.
bool ReplaceFileWhole(const std::string& fileSystemPath, std::string_view content,
                      std::string& error);

/// Reads the whole file; false with path and reason in `error`. For a missing file the reason is
/// set as well, and `missing`, if not null, tells it from other failures.
bool ReadFileWhole(const std::string& fileSystemPath, std::string& content, std::string& error,
                   bool* missing = nullptr);

}  // namespace win32
