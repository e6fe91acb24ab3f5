#pragma once

#include <vector>

#include "platform/mfc/DialogModel.h"

namespace mfc {

/// State of a property sheet. OK and Cancel are the back end's to draw; a press is Command().
class SheetModel : public FrameModel {
public:
    struct Tab {
        WORD number;          ///< of the page's template
        std::string caption;  ///< GBK
        DialogRect rect;
        DialogModel* page = nullptr;  ///< null until the page first comes to the front
    };

    /// `activate` is what brings a page to the front, making it if need be.
    SheetModel(std::string caption, std::vector<Tab> tabs, bool hasApply, bool hasHelp,
               std::function<void(std::size_t index)> activate);

    const std::vector<Tab>& Tabs() const { return tabs_; }
    bool HasApply() const { return hasApply_; }
    bool HasHelp() const { return hasHelp_; }
    /// Index of the page in front; -1 before the first.
    int ActivePage() const { return active_; }
    /// Null before the first.
    DialogModel* ActiveDialog() const;
    void SetPage(std::size_t index, DialogModel* page) { tabs_.at(index).page = page; }
    void SetActivePage(std::size_t index);

    /// The user clicks a page's tab. False also when there is no such page.
    bool ClickTab(std::size_t index);

private:
    std::vector<Tab> tabs_;
    bool hasApply_;
    bool hasHelp_;
    std::function<void(std::size_t)> activate_;
    int active_ = -1;
};

}  // namespace mfc
