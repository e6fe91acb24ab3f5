#include "apps/windows/QtWindowSystem.h"

#include <QApplication>
#include <QProgressDialog>
#include <QSettings>

#include "apps/windows/DialogWindow.h"
#include "apps/windows/MessageBoxWindow.h"
#include "apps/windows/SheetWindow.h"
#include "apps/windows/qt_text.h"

namespace windows {

namespace {
constexpr const char* kFrontPages = "frontPages/";
}  // namespace

/// A progress window gives way to what comes to the front, so it can own nothing.
QWidget* QtWindowSystem::Owner() const {
    QWidget* front = QApplication::activeModalWidget();
    while (qobject_cast<QProgressDialog*>(front) != nullptr) {
        front = front->parentWidget();
    }
    return front != nullptr ? front : mainWindow_;
}

void QtWindowSystem::RunSheet(mfc::SheetModel& sheet) const {
    const QString key = QLatin1String(kFrontPages) + FromGbk(sheet.Text());
    const QString remembered = remembersPages_ ? QSettings().value(key).toString() : QString();
    for (std::size_t i = 0; i < sheet.Tabs().size(); ++i) {
        if (FromGbk(sheet.Tabs()[i].caption) == remembered) {
            sheet.ClickTab(i);
        }
    }
    SheetWindow(sheet, Owner()).exec();
    if (remembersPages_ && sheet.ActivePage() >= 0) {
        const auto front = static_cast<std::size_t>(sheet.ActivePage());
        QSettings().setValue(key, FromGbk(sheet.Tabs()[front].caption));
    }
}

void QtWindowSystem::RunModal(mfc::FrameModel& window) {
    if (auto* sheet = dynamic_cast<mfc::SheetModel*>(&window)) {
        RunSheet(*sheet);
    } else {
        DialogWindow(dynamic_cast<mfc::DialogModel&>(window), Owner()).exec();
    }
}

int QtWindowSystem::ShowMessageBox(const mfc::MessageBoxRequest& request) {
    return MessageBoxWindow(request, Owner()).Ask();
}

}  // namespace windows
