#pragma once

#include <string>

#include "apps/grdx/MessageStream.h"

namespace console {

/// Runs a script in the suite folder: lines of command-line input, and under a line the answers
/// (lines that start with '@') to the dialogs and boxes that its command shows. Prints the path of
/// every drawing saved on standard output. False when a command failed, an answer could not be
/// given or was not asked for, a file could not be read or written, or results could not be stored;
/// the reasons are told and the rest of the script is run all the same.
bool RunScript(const std::string& suiteFolder, const std::string& utf8, MessageStream& messages);

}  // namespace console
