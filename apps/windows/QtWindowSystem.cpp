#include "apps/windows/QtWindowSystem.h"

#include <QApplication>
#include <QProgressDialog>

#include "apps/windows/DialogWindow.h"
#include "apps/windows/MessageBoxWindow.h"
#include "apps/windows/SheetWindow.h"

namespace windows {

/// A progress window gives way to what comes to the front, so it can own nothing.
QWidget* QtWindowSystem::Owner() const {
    QWidget* front = QApplication::activeModalWidget();
    while (qobject_cast<QProgressDialog*>(front) != nullptr) {
        front = front->parentWidget();
    }
    return front != nullptr ? front : mainWindow_;
}

void QtWindowSystem::RunModal(mfc::FrameModel& window) {
    if (auto* sheet = dynamic_cast<mfc::SheetModel*>(&window)) {
        SheetWindow(*sheet, Owner()).exec();
    } else {
        DialogWindow(dynamic_cast<mfc::DialogModel&>(window), Owner()).exec();
    }
}

int QtWindowSystem::ShowMessageBox(const mfc::MessageBoxRequest& request) {
    return MessageBoxWindow(request, Owner()).Ask();
}

}  // namespace windows
