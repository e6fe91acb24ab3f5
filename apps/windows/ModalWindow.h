#pragma once

#include <QDialog>

#include "platform/mfc/FrameModel.h"

namespace windows {

/// A window that shows a dialog or a sheet until the model has ended.
class ModalWindow : public QDialog {
public:
    ModalWindow(mfc::FrameModel& model, QWidget* parent);
    ~ModalWindow() override;

    /// Esc and the title's close button.
    void reject() override;

protected:
    /// Shows a change of anything within the window. Caption, icon and end are seen to.
    virtual void Show(const mfc::WindowModel& window, mfc::Change change) = 0;
    mfc::FrameModel& Model() const { return model_; }
    void closeEvent(QCloseEvent* event) override;

private:
    void ShowFrame();

    mfc::FrameModel& model_;
};

}  // namespace windows
