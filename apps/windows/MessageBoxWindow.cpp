#include "apps/windows/MessageBoxWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPushButton>

#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "apps/windows/standard_button.h"

namespace windows {

namespace {
constexpr UINT kIconMask = 0xF0;

QMessageBox::Icon IconOf(UINT type) {
    switch (type & kIconMask) {
        case MB_ICONHAND:
            return QMessageBox::Critical;
        case MB_ICONQUESTION:
            return QMessageBox::Question;
        case MB_ICONEXCLAMATION:
            return QMessageBox::Warning;
        case MB_ICONINFORMATION:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

struct BoxButton {
    int id;
    QMessageBox::ButtonRole role;
};
/// From left to right.
constexpr BoxButton kButtons[] = {{IDOK, QMessageBox::AcceptRole},
                                  {IDYES, QMessageBox::YesRole},
                                  {IDNO, QMessageBox::NoRole},
                                  {IDCANCEL, QMessageBox::RejectRole}};
}  // namespace

MessageBoxWindow::MessageBoxWindow(const mfc::MessageBoxRequest& request, QWidget* parent)
    : QMessageBox(parent), type_(request.type) {
    setWindowTitle(request.caption.empty() ? QApplication::applicationDisplayName()
                                           : FromGbk(request.caption));
    setTextFormat(Qt::PlainText);
    setText(FromGbk(request.text));
    setIcon(IconOf(type_));
    // The plug-in's texts are Chinese wherever it runs, and some name the buttons.
    const bool chinese = !request.ofProgram || IsInterfaceChinese();
    for (const BoxButton& button : kButtons) {
        if (mfc::HasButton(type_, button.id)) {
            QPushButton* const made =
                addButton(StandardButtonText(button.id, chinese), button.role);
            made->setObjectName(QStringLiteral("control %1").arg(button.id));
            if (button.id == mfc::DefaultButton(type_)) {
                setDefaultButton(made);
            }
        }
    }
    MakeRoomForTitle();
}

/// A box is as wide as its text wants, and a short one would cut its title off.
void MessageBoxWindow::MakeRoomForTitle() {
    constexpr int kTitleButtons = 10;  ///< the room they take, in characters
    auto* const grid = static_cast<QGridLayout*>(layout());
    const int width = fontMetrics().horizontalAdvance(windowTitle()) +
                      kTitleButtons * fontMetrics().horizontalAdvance(QLatin1Char('M'));
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int MessageBoxWindow::Ask() {
    exec();
    const QAbstractButton* const pressed = clickedButton();
    for (const BoxButton& button : kButtons) {
        if (pressed != nullptr &&
            pressed->objectName() == QStringLiteral("control %1").arg(button.id)) {
            return button.id;
        }
    }
    return mfc::HasButton(type_, IDCANCEL) ? IDCANCEL : IDOK;
}

bool MessageBoxWindow::MayBeClosed() const {
    return !mfc::HasButton(type_, IDYES) || mfc::HasButton(type_, IDCANCEL);
}

void MessageBoxWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || MayBeClosed()) {
        QMessageBox::keyPressEvent(event);
    }
}

void MessageBoxWindow::closeEvent(QCloseEvent* event) {
    if (MayBeClosed()) {
        QMessageBox::closeEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace windows
