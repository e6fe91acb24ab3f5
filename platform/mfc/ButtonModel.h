#pragma once

#include "platform/mfc/WindowModel.h"

namespace mfc {

/// State of a push button or a check box, told apart by Kind().
class ButtonModel : public WindowModel {
public:
    ButtonModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect, std::string text);

    bool Checked() const { return checked_; }
    /// Does nothing on a push button.
    void SetChecked(bool checked);
    /// Enter presses it.
    bool IsDefault() const;

    /// The user presses the button, or turns the check box over, which is told to the parent.
    bool Click();

private:
    bool checked_ = false;
};

}  // namespace mfc
