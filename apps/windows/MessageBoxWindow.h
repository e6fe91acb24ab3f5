#pragma once

#include <QMessageBox>

#include "platform/mfc/window_system.h"

namespace windows {

/// A message box. One that only offers Yes and No must be answered: neither Esc nor the title's
/// close button is an answer.
class MessageBoxWindow : public QMessageBox {
public:
    MessageBoxWindow(const mfc::MessageBoxRequest& request, QWidget* parent);

    /// Shows the box and returns the id of the button pressed.
    int Ask();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool MayBeClosed() const;
    void MakeRoomForTitle();

    UINT type_;
};

}  // namespace windows
