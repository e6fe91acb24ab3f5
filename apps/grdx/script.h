#pragma once

#include <string>

#include "apps/grdx/MessageStream.h"

namespace console {

/// Runs a script in the suite folder: lines of command-line input, and under a line the answers
/// (lines that start with '@') to the dialogs and boxes that its command shows. `name` is a file,
/// or a stream (InputStream), each line of which is run as it arrives. Prints the path of every
/// drawing saved on standard output. False when a command refused or failed, an answer could not be
/// given or was not asked for, or a file could not be read or written; the reasons are told and the
/// rest of the script is run all the same. Failure when it cannot start.
bool RunScript(const std::string& suiteFolder, const std::string& name, MessageStream& messages);

}  // namespace console
