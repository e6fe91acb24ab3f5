#include "platform/mfc/DialogModel.h"

#include <algorithm>
#include <stdexcept>

#include "platform/mfc/ButtonModel.h"
#include "platform/mfc/DatePickerModel.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/window_styles.h"

namespace mfc {
namespace {

std::unique_ptr<WindowModel> MakeControl(const ControlDescription& control, DialogModel* dialog) {
    const std::string& name = control.windowClass;
    const auto plain = [&](WindowKind kind) {
        return std::make_unique<WindowModel>(kind, dialog, control.id, control.style, control.rect,
                                             control.text);
    };
    if (name == WC_STATIC) {
        return plain(WindowKind::Static);
    }
    if (name == WC_EDIT) {
        return plain(WindowKind::Edit);
    }
    if (name == WC_BUTTON) {
        return std::make_unique<ButtonModel>(dialog, control.id, control.style, control.rect,
                                             control.text);
    }
    if (name == WC_LISTBOX) {
        return std::make_unique<ListBoxModel>(dialog, control.id, control.style, control.rect);
    }
    if (name == DATETIMEPICK_CLASS) {
        return std::make_unique<DatePickerModel>(dialog, control.id, control.style, control.rect);
    }
    throw std::logic_error("no control of window class " + name);
}

}  // namespace

DialogModel::DialogModel(const DialogDescription& description, WindowModel* sheet)
    : FrameModel(WindowKind::Dialog, sheet, description.style, description.rect,
                 description.caption),
      number_(description.number) {
    for (const ControlDescription& control : description.controls) {
        controls_.push_back(MakeControl(control, this));
    }
}

WindowModel* DialogModel::Find(int id) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [id](const std::unique_ptr<WindowModel>& control) {
                                        return control->Id() == id && id != IDC_STATIC;
                                    });
    return found == controls_.end() ? nullptr : found->get();
}

void DialogModel::SetFocus(WindowModel* control) {
    if (control != focus_) {
        focus_ = control;
        Changed(Change::Focus);
    }
}

void DialogModel::FocusFirst() {
    const auto first = std::find_if(controls_.begin(), controls_.end(),
                                    [](const std::unique_ptr<WindowModel>& control) {
                                        return control->HasStyle(WS_TABSTOP) && control->Enabled();
                                    });
    SetFocus(first == controls_.end() ? nullptr : first->get());
}

bool DialogModel::Command(int id) {
    auto* button = dynamic_cast<ButtonModel*>(Find(id));
    return button != nullptr ? button->Click() : FrameModel::Command(id);
}

}  // namespace mfc
