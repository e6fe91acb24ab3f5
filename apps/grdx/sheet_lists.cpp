#include "apps/grdx/sheet_lists.h"

#include "platform/mfc/SheetModel.h"
#include "src/facts/mark_keys.h"

namespace console {

mfc::ListBoxModel* FindSheetList(mfc::FrameModel& window, int id) {
    if (window.Kind() != mfc::WindowKind::Sheet) {
        return nullptr;
    }
    for (const mfc::SheetModel::Tab& tab : static_cast<mfc::SheetModel&>(window).Tabs()) {
        mfc::WindowModel* control = tab.page != nullptr ? tab.page->Find(id) : nullptr;
        if (control != nullptr && control->Kind() == mfc::WindowKind::ListBox) {
            return static_cast<mfc::ListBoxModel*>(control);
        }
    }
    return nullptr;
}

std::string WithoutMark(const std::string& item) {
    return item.starts_with(kDrawnMark) ? item.substr(1) : item;
}

}  // namespace console
