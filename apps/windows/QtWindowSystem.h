#pragma once

#include <functional>

#include "platform/mfc/window_system.h"

class QWidget;

namespace windows {

/// Shows dialogs, sheets and message boxes as windows and waits for the user.
class QtWindowSystem : public mfc::WindowSystem {
public:
    /// The window in front of which the others stand; null for none. It must outlive the system or
    /// be taken back.
    void SetMainWindow(QWidget* window) { mainWindow_ = window; }
    /// Called before a window is shown.
    void SetShowListener(std::function<void()> listener) { showListener_ = std::move(listener); }

    void RunModal(mfc::FrameModel& window) override;
    int ShowMessageBox(const mfc::MessageBoxRequest& request) override;

private:
    QWidget* Owner() const;
    void TellOfShowing() const;

    QWidget* mainWindow_ = nullptr;
    std::function<void()> showListener_;
};

}  // namespace windows
