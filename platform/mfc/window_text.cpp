#include "platform/mfc/window_text.h"

#include "platform/mfc/ButtonModel.h"
#include "platform/mfc/CTime.h"
#include "platform/mfc/DatePickerModel.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/SheetModel.h"
#include "platform/win32/code_page.h"

namespace mfc {
namespace {

std::string ListText(const ListBoxModel& list) {
    std::string text = "list";
    for (const ListBoxModel::Item& item : list.Items()) {
        text += item.selected ? " [" + item.text + "]" : " " + item.text;
    }
    return text;
}

/// GBK; empty for what only stands there.
std::string ControlText(const WindowModel& control) {
    switch (control.Kind()) {
        case WindowKind::ListBox:
            return ListText(static_cast<const ListBoxModel&>(control));
        case WindowKind::CheckBox:
            return (static_cast<const ButtonModel&>(control).Checked() ? "on " : "off ") +
                   control.Text();
        case WindowKind::PushButton:
            return "button " + control.Text();
        case WindowKind::Edit:
            return "field " + control.Text();
        case WindowKind::DatePicker: {
            const CTime date(static_cast<const DatePickerModel&>(control).Time());
            return std::string("date ") + static_cast<const char*>(date.Format("%Y-%m-%d"));
        }
        default:
            return {};
    }
}

}  // namespace

std::string WindowText(const FrameModel& window) {
    const auto* const sheet = dynamic_cast<const SheetModel*>(&window);
    const auto* const dialog =
        sheet != nullptr ? sheet->ActiveDialog() : dynamic_cast<const DialogModel*>(&window);
    std::string text = window.Text();
    if (dialog == nullptr) {
        return win32::Utf8FromGbk(text);
    }
    if (sheet != nullptr) {
        const auto& tab = sheet->Tabs()[static_cast<std::size_t>(sheet->ActivePage())];
        text += ", page " + std::to_string(tab.number) + " " + tab.caption;
    }
    for (const auto& control : dialog->Controls()) {
        if (const std::string shown = ControlText(*control); !shown.empty()) {
            text += "\n" + std::to_string(control->Id()) + " " + shown +
                    (control->Enabled() ? "" : " (disabled)");
        }
    }
    return win32::Utf8FromGbk(text);
}

}  // namespace mfc
