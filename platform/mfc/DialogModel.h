#pragma once

#include <vector>

#include "platform/mfc/FrameModel.h"

namespace mfc {

/// State of a dialog or of a sheet's page.
class DialogModel : public FrameModel {
public:
    /// `sheet` is null for a dialog of its own.
    DialogModel(const DialogDescription& description, WindowModel* sheet);

    /// The number of its template.
    WORD Number() const { return number_; }
    /// In tab order.
    const std::vector<std::unique_ptr<WindowModel>>& Controls() const { return controls_; }
    /// The control of that id; null when there is none, and for IDC_STATIC.
    WindowModel* Find(int id) const;

    /// The control with the focus; null for none.
    WindowModel* Focus() const { return focus_; }
    void SetFocus(WindowModel* control);
    /// Gives the focus to the first control with WS_TABSTOP that is enabled.
    void FocusFirst();

    bool Command(int id) override;

private:
    WORD number_;
    std::vector<std::unique_ptr<WindowModel>> controls_;
    WindowModel* focus_ = nullptr;
};

}  // namespace mfc
