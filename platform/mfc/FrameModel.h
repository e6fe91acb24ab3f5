#pragma once

#include <functional>

#include "platform/mfc/WindowModel.h"

namespace mfc {

using ChangeListener = std::function<void(WindowModel& window, Change change)>;

/// What a dialog, a page and a sheet have in common: they hold other windows, and can be ended.
class FrameModel : public WindowModel {
public:
    FrameModel(WindowKind kind, WindowModel* parent, DWORD style, const DialogRect& rect,
               std::string caption);

    /// Once ended the window is to go from the screen; its state is there until the back end
    /// returns.
    bool Ended() const { return ended_; }
    int Result() const { return result_; }
    void End(int result);

    /// Null for none.
    HICON Icon(bool big) const { return big ? bigIcon_ : smallIcon_; }
    void SetIcon(HICON icon, bool big);

    /// The one back end that shows the window. It is told of changes in the window and in
    /// everything within it, after they happened; an empty function ends that.
    void SetChangeListener(ChangeListener listener) { listener_ = std::move(listener); }

    /// The user gives a command of the window itself: IDOK (Enter) or IDCANCEL (Esc, the title's
    /// close button). Goes by the button of that id where there is one.
    virtual bool Command(int id);

protected:
    void OnChanged(WindowModel& window, Change change) override;

private:
    bool ended_ = false;
    int result_ = 0;
    HICON bigIcon_ = nullptr;
    HICON smallIcon_ = nullptr;
    ChangeListener listener_;
};

}  // namespace mfc
