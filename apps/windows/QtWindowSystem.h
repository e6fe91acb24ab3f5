#pragma once

#include "platform/mfc/window_system.h"

class QWidget;

namespace mfc {
class SheetModel;
}

namespace windows {

/// Shows dialogs, sheets and message boxes as windows and waits for the user.
class QtWindowSystem : public mfc::WindowSystem {
public:
    /// The window in front of which the others stand; null for none. It must outlive the system or
    /// be taken back.
    void SetMainWindow(QWidget* window) { mainWindow_ = window; }

    /// Has a sheet open with the page in front that was there when it was last closed, in this run
    /// or an earlier one (QSettings). Off at first.
    void SetRemembersPages(bool remembers) { remembersPages_ = remembers; }

    void RunModal(mfc::FrameModel& window) override;
    int ShowMessageBox(const mfc::MessageBoxRequest& request) override;

private:
    QWidget* Owner() const;
    void RunSheet(mfc::SheetModel& sheet) const;

    QWidget* mainWindow_ = nullptr;
    bool remembersPages_ = false;
};

}  // namespace windows
