#pragma once

#include <string>

#include "platform/mfc/FrameModel.h"
#include "platform/mfc/message_box.h"

/// The seam between windows as the system knows them and whatever shows them.
namespace mfc {

struct MessageBoxRequest {
    std::string text;     ///< GBK
    std::string caption;  ///< GBK; empty: the program's name
    UINT type = MB_OK;    ///< buttons, icon and default button
    HWND owner = nullptr;
    /// The program itself asks, in the user's language; otherwise a plug-in does, in its own.
    bool ofProgram = false;
};

class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// Shows a dialog or a sheet (DialogModel or SheetModel, by its Kind()) and lets the user work
    /// on it until it has ended. One that has not ended on return counts as cancelled.
    virtual void RunModal(FrameModel& window) = 0;
    /// Shows the box and returns the id of the button pressed.
    virtual int ShowMessageBox(const MessageBoxRequest& request) = 0;
};

/// Sets the window system, which stays the caller's; null for none. Returns the one before.
WindowSystem* SetWindowSystem(WindowSystem* system);
/// The one set; stops the program when there is none, since nobody could answer.
WindowSystem& CurrentWindowSystem();

/// The id of the button that Enter would press, and whether a box of this type has a button.
int DefaultButton(UINT type);
bool HasButton(UINT type, int id);

}  // namespace mfc
