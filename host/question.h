#pragma once

#include <string>

#include "platform/mfc/message_box.h"

namespace host {

/// Asks the user in the program's own name; `question` is GBK, `type` and answer as for MessageBox.
int AskUser(const std::string& question, UINT type);

}  // namespace host
