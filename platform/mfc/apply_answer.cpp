#include "platform/mfc/apply_answer.h"

#include <charconv>
#include <string_view>

#include "platform/mfc/ButtonModel.h"
#include "platform/mfc/DatePickerModel.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/SheetModel.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/code_page.h"

namespace mfc {
namespace {

std::string_view WithoutMark(std::string_view text) {
    return text.starts_with('*') ? text.substr(1) : text;
}

/// Index of the item with that text, mark or no mark; -1 when there is none.
int FindItem(const ListBoxModel& list, const std::string& text) {
    int found = -1;
    for (int i = static_cast<int>(list.Items().size()) - 1; i >= 0; --i) {
        const std::string& item = list.Items()[static_cast<std::size_t>(i)].text;
        if (item == text) {
            return i;
        }
        if (WithoutMark(item) == WithoutMark(text)) {
            found = i;
        }
    }
    return found;
}

/// Reads YYYY-MM-DD; false when the text is anything else.
bool ParseDate(std::string_view text, int& year, int& month, int& day) {
    const auto number = [text](std::size_t from, std::size_t length, int& value) {
        const char* first = text.data() + from;
        const auto [end, status] = std::from_chars(first, first + length, value);
        return status == std::errc() && end == first + length && *first != '-';
    };
    return text.size() == 10 && text[4] == '-' && text[7] == '-' && number(0, 4, year) &&
           number(5, 2, month) && number(8, 2, day);
}

class Applier {
public:
    Applier(FrameModel& window, const Answer& answer, std::string& error)
        : window_(window),
          sheet_(dynamic_cast<SheetModel*>(&window)),
          answer_(answer),
          error_(error) {}

    bool Apply() {
        switch (answer_.kind) {
            case Answer::Kind::Page:
                return BringToFront();
            case Answer::Kind::Select:
                return Select();
            case Answer::Kind::Type:
                return Type();
            case Answer::Kind::Check:
                return Check();
            case Answer::Kind::Press:
                return Press();
            default:
                return Refuse("no message box is shown");
        }
    }

private:
    bool Refuse(const std::string& reason) {
        error_ = reason;
        return false;
    }
    std::string Name() const { return "control " + std::to_string(answer_.id); }

    bool BringToFront() {
        for (std::size_t i = 0; sheet_ != nullptr && i < sheet_->Tabs().size(); ++i) {
            if (sheet_->Tabs()[i].number == answer_.id) {
                return sheet_->ClickTab(i) || Refuse("the sheet is disabled");
            }
        }
        return Refuse("there is no page " + std::to_string(answer_.id));
    }

    /// On the page in front, then on the others made so far, which then comes to the front.
    WindowModel* FindControl() {
        if (sheet_ == nullptr) {
            return dynamic_cast<DialogModel&>(window_).Find(answer_.id);
        }
        DialogModel* front = sheet_->ActiveDialog();
        if (WindowModel* control = front == nullptr ? nullptr : front->Find(answer_.id)) {
            return control;
        }
        for (std::size_t i = 0; i < sheet_->Tabs().size(); ++i) {
            const DialogModel* page = sheet_->Tabs()[i].page;
            if (WindowModel* control = page == nullptr ? nullptr : page->Find(answer_.id)) {
                sheet_->ClickTab(i);
                return control;
            }
        }
        return nullptr;
    }

    /// The control, if the user can reach it and it is what `what` says; else null and the reason.
    template <class Model>
    Model* FindUsable(WindowKind kind, const char* what) {
        WindowModel* control = FindControl();
        if (control == nullptr) {
            Refuse("there is no " + Name());
        } else if (control->Kind() != kind) {
            Refuse(Name() + " is no " + what);
        } else if (!control->Operable()) {
            Refuse(Name() + " is disabled");
        } else {
            return static_cast<Model*>(control);
        }
        return nullptr;
    }

    bool Select() {
        auto* list = FindUsable<ListBoxModel>(WindowKind::ListBox, "list");
        if (list == nullptr) {
            return false;
        }
        if (!list->MultipleSelection() && answer_.texts.size() != 1) {
            return Refuse(Name() + " takes one item");
        }
        for (const std::string& text : answer_.texts) {
            if (!list->Click(FindItem(*list, text))) {
                return Refuse(Name() + " has no item " + win32::Utf8FromGbk(text));
            }
        }
        return true;
    }

    bool Type() {
        const std::string& text = answer_.texts.at(0);
        const WindowModel* control = FindControl();
        if (control != nullptr && control->Kind() == WindowKind::DatePicker) {
            return PickDate(text);
        }
        auto* edit = FindUsable<WindowModel>(WindowKind::Edit, "edit field or date picker");
        return edit != nullptr && edit->Type(text);
    }

    bool PickDate(const std::string& text) {
        auto* picker = FindUsable<DatePickerModel>(WindowKind::DatePicker, "date picker");
        if (picker == nullptr) {
            return false;
        }
        int year = 0;
        int month = 0;
        int day = 0;
        return (ParseDate(text, year, month, day) && picker->PickDate(year, month, day)) ||
               Refuse("not a date YYYY-MM-DD: " + win32::Utf8FromGbk(text));
    }

    bool Check() {
        auto* box = FindUsable<ButtonModel>(WindowKind::CheckBox, "check box");
        return box != nullptr && (box->Checked() == answer_.on || box->Click());
    }

    bool Press() {
        const bool ofWindow = answer_.id == IDOK || answer_.id == IDCANCEL;
        if (ofWindow && (sheet_ != nullptr || FindControl() == nullptr)) {
            return window_.Command(answer_.id) || Refuse("the window is disabled");
        }
        auto* button = FindUsable<ButtonModel>(WindowKind::PushButton, "button");
        return button != nullptr && button->Click();
    }

    FrameModel& window_;
    SheetModel* sheet_;
    const Answer& answer_;
    std::string& error_;
};

}  // namespace

bool ApplyAnswer(FrameModel& window, const Answer& answer, std::string& error) {
    return Applier(window, answer, error).Apply();
}

}  // namespace mfc
