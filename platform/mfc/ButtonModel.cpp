#include "platform/mfc/ButtonModel.h"

#include "platform/mfc/CCmdTarget.h"
#include "platform/mfc/window_styles.h"

namespace mfc {
namespace {

constexpr DWORD kButtonKind = 0xF;

WindowKind KindOf(DWORD style) {
    return (style & kButtonKind) == BS_AUTOCHECKBOX ? WindowKind::CheckBox : WindowKind::PushButton;
}

}  // namespace

ButtonModel::ButtonModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect,
                         std::string text)
    : WindowModel(KindOf(style), parent, id, style, rect, std::move(text)) {}

void ButtonModel::SetChecked(bool checked) {
    if (Kind() == WindowKind::CheckBox && checked != checked_) {
        checked_ = checked;
        Changed(Change::Check);
    }
}

bool ButtonModel::IsDefault() const {
    return (Style() & kButtonKind) == BS_DEFPUSHBUTTON;
}

bool ButtonModel::Click() {
    if (!Operable()) {
        return false;
    }
    SetChecked(!checked_);
    Notify(BN_CLICKED);
    return true;
}

}  // namespace mfc
