#include "apps/windows/QtWindowSystem.h"

#include <QApplication>

#include "apps/windows/DialogWindow.h"
#include "apps/windows/MessageBoxWindow.h"
#include "apps/windows/SheetWindow.h"

namespace windows {

QWidget* QtWindowSystem::Owner() const {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : mainWindow_;
}

void QtWindowSystem::TellOfShowing() const {
    if (showListener_) {
        showListener_();
    }
}

void QtWindowSystem::RunModal(mfc::FrameModel& window) {
    TellOfShowing();
    if (auto* sheet = dynamic_cast<mfc::SheetModel*>(&window)) {
        SheetWindow(*sheet, Owner()).exec();
    } else {
        DialogWindow(dynamic_cast<mfc::DialogModel&>(window), Owner()).exec();
    }
}

int QtWindowSystem::ShowMessageBox(const mfc::MessageBoxRequest& request) {
    TellOfShowing();
    return MessageBoxWindow(request, Owner()).Ask();
}

}  // namespace windows
