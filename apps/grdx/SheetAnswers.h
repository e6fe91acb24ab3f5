#pragma once

#include <set>
#include <string>
#include <vector>

#include "apps/grdx/draw.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/ScriptedWindowSystem.h"

namespace console {

/// Answers the property sheet of a chart command as a request says: picks what is to be drawn among
/// what the pages offer, sets the option and annotation pages, and presses OK. What is not offered
/// fails the run by name before OK. A dialog that comes later is left to be cancelled.
class SheetAnswers {
public:
    /// Failure for a text that GBK does not have, and for a choice that the pages do not offer.
    SheetAnswers(const DrawRequest& request, mfc::ScriptedWindowSystem& windows);

    /// An answer source for the window system.
    std::vector<mfc::Answer> operator()(mfc::FrameModel& window);

private:
    enum class Step { Borehole, Items, Done };

    std::vector<mfc::Answer> PickBorehole(mfc::FrameModel& sheet);
    std::vector<mfc::Answer> PickItems(mfc::FrameModel& sheet);
    void Click(mfc::ListBoxModel* list, const std::set<int>& wanted);
    std::vector<mfc::Answer> RestOfSheet() const;
    void AddOptions(std::vector<mfc::Answer>& answers) const;
    void AddAnnotations(std::vector<mfc::Answer>& answers) const;

    const DrawRequest& request_;
    mfc::ScriptedWindowSystem& windows_;
    Step step_;
};

}  // namespace console
