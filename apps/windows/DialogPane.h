#pragma once

#include <QWidget>
#include <functional>
#include <map>

#include "platform/mfc/DialogModel.h"

namespace windows {

class DialogUnits;

/// The controls of a dialog or of a sheet's page, at the places of their template. Every widget is
/// named by its control's id, "control 2001", except for those that nobody addresses.
class DialogPane : public QWidget {
public:
    /// The model must outlive the pane.
    DialogPane(mfc::DialogModel& dialog, const DialogUnits& units, QWidget* parent);

    /// Shows a change of the pane's dialog or of one of its controls.
    void Show(const mfc::WindowModel& window, mfc::Change change);
    /// Gives the keyboard to the control that the dialog says has it.
    void TakeFocus();
    /// Has the tabulator go from `before` (null: from nowhere) through the controls in the order of
    /// the template; the last of them.
    QWidget* ChainTabs(QWidget* before);

private:
    struct Control {
        QWidget* widget;
        std::function<void()> update;  ///< shows text, state, items and so on
    };

    void Add(mfc::WindowModel& control, const DialogUnits& units);
    Control MakeControl(mfc::WindowModel& control);
    bool eventFilter(QObject* watched, QEvent* event) override;

    mfc::DialogModel& dialog_;
    std::map<const mfc::WindowModel*, Control> controls_;
};

}  // namespace windows
