#pragma once

#include <string>

#include "platform/mfc/FrameModel.h"
#include "platform/mfc/ListBoxModel.h"

/// The lists on the selection page of a chart command's property sheet.
namespace console {

/// A list of the sheet; null when there is none of that id, as in a dialog that is no such sheet.
mfc::ListBoxModel* FindSheetList(mfc::FrameModel& window, int id);

/// An item without the star of what was drawn.
std::string WithoutMark(const std::string& item);

}  // namespace console
