#include "platform/mfc/CButton.h"

#include <stdexcept>

#include "platform/mfc/ButtonModel.h"

namespace {

mfc::ButtonModel& ButtonOf(mfc::WindowModel& window) {
    auto* button = dynamic_cast<mfc::ButtonModel*>(&window);
    if (button == nullptr) {
        throw std::logic_error("control " + std::to_string(window.Id()) + " is no button");
    }
    return *button;
}

}  // namespace

int CButton::GetCheck() const {
    return ButtonOf(RequireModel()).Checked() ? BST_CHECKED : BST_UNCHECKED;
}

void CButton::SetCheck(int check) {
    ButtonOf(RequireModel()).SetChecked(check != BST_UNCHECKED);
}
