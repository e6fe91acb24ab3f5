#pragma once

#include <vector>

#include "apps/windows/DialogUnits.h"
#include "apps/windows/ModalWindow.h"
#include "platform/mfc/SheetModel.h"

class QPushButton;
class QTabWidget;

namespace windows {

class DialogPane;

/// A property sheet: its pages as tabs, below them OK and Cancel.
class SheetWindow : public ModalWindow {
public:
    SheetWindow(mfc::SheetModel& sheet, QWidget* parent);

private:
    void Show(const mfc::WindowModel& window, mfc::Change change) override;
    void AddTabs();
    void AddButtons();
    void ChainTabs();
    /// Puts controls on the pages that have got some, and the active page in front.
    void ShowPages();

    mfc::SheetModel& sheet_;
    DialogUnits units_;
    QTabWidget* tabs_;
    std::vector<QPushButton*> buttons_;
    std::vector<DialogPane*> panes_;  ///< one a tab, null while the page has no controls
};

}  // namespace windows
