#pragma once

#include <string>

#include "host/phrase.h"
#include "platform/mfc/message_box.h"

namespace host {

/// Prints on the command line why something is refused. Always false, so that a refusal is one
/// statement.
bool Complain(Phrase phrase, std::initializer_list<std::string> values = {});
/// Likewise, for a reason that others have put into words (GBK).
bool ComplainAsTold(const std::string& reason);

/// Asks the user in the program's own name; `question` is GBK, `type` and answer as for MessageBox.
int AskUser(const std::string& question, UINT type);

}  // namespace host
