#pragma once

#include <string>

namespace mfc {

class FrameModel;

/// What a user sees of a window, as lines of UTF-8: its caption with the page in front and the
/// page's number, then a line for each control that can be addressed, by its id: a list's items,
/// those that are selected in brackets, whether a box is checked, the text of a field or button, a
/// date. What is disabled is said to be.
std::string WindowText(const FrameModel& window);

}  // namespace mfc
