#pragma once

#include <string>

/// For hosts: which folder the suite library's operations answer from.
namespace suite {

/// Opens the suite folder `folder` (UTF-8, a path of the file system, relative to the current
/// folder or absolute) by its suite.ini. False, with file and reason in `error` (UTF-8) and the
/// folder opened before kept, when suite.ini is missing, lacks a key, or a path of it cannot be
/// written in GBK or is too long for its buffer.
///
/// A relative path in suite.ini counts from the folder. So does the Data Source of an
/// initialisation string whose provider is SQLite, since it is a file; any other string stays
/// as it is.
bool OpenFolder(const std::string& folder, std::string& error);
/// Whether OpenFolder would open it, with the same errors.
bool CheckFolder(const std::string& folder, std::string& error);
/// Back to no suite folder: paths are empty, the other operations fail.
void CloseFolder();

}  // namespace suite
