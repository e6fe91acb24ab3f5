#pragma once

#include "platform/mfc/window_system.h"

class QWidget;

namespace windows {

/// Shows dialogs, sheets and message boxes as windows and waits for the user.
class QtWindowSystem : public mfc::WindowSystem {
public:
    /// The window in front of which the others stand; null for none. It must outlive the system or
    /// be taken back.
    void SetMainWindow(QWidget* window) { mainWindow_ = window; }

    void RunModal(mfc::FrameModel& window) override;
    int ShowMessageBox(const mfc::MessageBoxRequest& request) override;

private:
    QWidget* Owner() const;

    QWidget* mainWindow_ = nullptr;
};

}  // namespace windows
