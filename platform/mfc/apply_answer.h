#pragma once

#include <string>

#include "platform/mfc/FrameModel.h"
#include "platform/mfc/dialog_answer.h"

namespace mfc {

/// Does with the dialog or sheet what the answer says, as a user would: brings the control's page
/// to the front first, and does nothing that a disabled control would not let him do. A list's
/// item is found by its text, with or without a leading "*", the text as it stands first.
/// False, with the reason in `error` (UTF-8), for what cannot be done; a selection of several items
/// may then be done in part.
bool ApplyAnswer(FrameModel& window, const Answer& answer, std::string& error);

}  // namespace mfc
