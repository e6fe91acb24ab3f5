#pragma once

#include "apps/windows/ModalWindow.h"
#include "platform/mfc/DialogModel.h"

namespace windows {

class DialogPane;

/// A dialog of its own.
class DialogWindow : public ModalWindow {
public:
    DialogWindow(mfc::DialogModel& dialog, QWidget* parent);

private:
    void Show(const mfc::WindowModel& window, mfc::Change change) override;

    DialogPane* pane_;
};

}  // namespace windows
