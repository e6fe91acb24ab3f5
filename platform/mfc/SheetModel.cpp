#include "platform/mfc/SheetModel.h"

namespace mfc {

SheetModel::SheetModel(std::string caption, std::vector<Tab> tabs, bool hasApply, bool hasHelp,
                       std::function<void(std::size_t)> activate)
    : FrameModel(WindowKind::Sheet, nullptr, 0, {}, std::move(caption)),
      tabs_(std::move(tabs)),
      hasApply_(hasApply),
      hasHelp_(hasHelp),
      activate_(std::move(activate)) {}

DialogModel* SheetModel::ActiveDialog() const {
    return active_ < 0 ? nullptr : tabs_[static_cast<std::size_t>(active_)].page;
}

void SheetModel::SetActivePage(std::size_t index) {
    if (active_ != static_cast<int>(index)) {
        active_ = static_cast<int>(index);
        Changed(Change::ActivePage);
    }
}

bool SheetModel::ClickTab(std::size_t index) {
    if (!Operable() || index >= tabs_.size()) {
        return false;
    }
    activate_(index);
    return true;
}

}  // namespace mfc
