#include "apps/windows/DialogWindow.h"

#include "apps/windows/DialogPane.h"
#include "apps/windows/DialogUnits.h"

namespace windows {

DialogWindow::DialogWindow(mfc::DialogModel& dialog, QWidget* parent)
    : ModalWindow(dialog, parent), pane_(new DialogPane(dialog, DialogUnits(font()), this)) {
    setFixedSize(pane_->size());
    pane_->TakeFocus();
}

void DialogWindow::Show(const mfc::WindowModel& window, mfc::Change change) {
    pane_->Show(window, change);
}

}  // namespace windows
