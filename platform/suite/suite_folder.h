#pragma once

#include <string>
#include <vector>

#include "platform/suite/outside_places.h"

/// For hosts: which folder the suite library's operations answer from.
///
/// A suite folder may come from somebody else. What it leads to outside of itself is used only when
/// the user has agreed, once for the folder and these places; and links in it, also ones planted
/// while it is open, do not lead writing anywhere else (win32::SetWriteBounds).
namespace suite {

/// Opens the suite folder `folder` (UTF-8, a path of the file system, relative to the current
/// folder or absolute) by its suite.ini. False, with file and reason in `error` (UTF-8) and the
/// folder opened before kept, when suite.ini is missing, lacks a key, or a path of it cannot be
/// written in GBK or is too long for its buffer; when the project's number is not the name of one
/// folder; and when the user has not agreed to what lies outside.
///
/// A relative path in suite.ini counts from the folder. So does the Data Source of an
/// initialisation string whose provider is SQLite, since it is a file; any other string stays
/// as it is.
bool OpenFolder(const std::string& folder, std::string& error);
/// Whether OpenFolder would open it, with the same errors, once the user has agreed to `notAgreed`.
bool CheckFolder(const std::string& folder, std::vector<OutsidePlace>& notAgreed,
                 std::string& error);
/// Remembers that the user agrees to these places too, which he has been shown. False, with file
/// and reason in `error`, when it cannot be remembered.
bool AgreeToFolder(const std::string& folder, const std::vector<OutsidePlace>& places,
                   std::string& error);
/// Whether the open folder may still be used: its project and its links may have changed. True
/// without one.
bool CheckOpenFolder(std::string& error);
/// Back to no suite folder: paths are empty, the other operations fail.
void CloseFolder();

}  // namespace suite
