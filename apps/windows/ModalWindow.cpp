#include "apps/windows/ModalWindow.h"

#include <QCloseEvent>
#include <QIcon>
#include <QPixmap>

#include "apps/windows/qt_text.h"
#include "platform/mfc/message_box.h"
#include "platform/mfc/resources.h"

namespace windows {

ModalWindow::ModalWindow(mfc::FrameModel& model, QWidget* parent) : QDialog(parent), model_(model) {
    ShowFrame();
    setEnabled(model.Enabled());
    model.SetChangeListener([this](mfc::WindowModel& window, mfc::Change change) {
        if (&window == &model_ && change == mfc::Change::Ended) {
            return done(model_.Result());
        }
        if (&window == &model_) {
            ShowFrame();
        }
        Show(window, change);
    });
}

ModalWindow::~ModalWindow() {
    model_.SetChangeListener(nullptr);
}

void ModalWindow::ShowFrame() {
    setWindowTitle(FromGbk(model_.Text()));
    QIcon icon;
    for (const bool big : {false, true}) {
        const std::string picture = mfc::IconPicture(model_.Icon(big));
        QPixmap pixmap;
        if (pixmap.loadFromData(reinterpret_cast<const uchar*>(picture.data()),
                                static_cast<uint>(picture.size()))) {
            icon.addPixmap(pixmap);
        }
    }
    setWindowIcon(icon);
}

void ModalWindow::reject() {
    model_.Command(IDCANCEL);
}

void ModalWindow::closeEvent(QCloseEvent* event) {
    reject();
    event->setAccepted(model_.Ended());
}

}  // namespace windows
