#include "platform/mfc/ListBoxModel.h"

#include <algorithm>

#include "platform/mfc/CCmdTarget.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/gbk_case.h"

namespace mfc {

ListBoxModel::ListBoxModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect)
    : WindowModel(WindowKind::ListBox, parent, id, style, rect, "") {}

bool ListBoxModel::MultipleSelection() const {
    return HasStyle(LBS_MULTIPLESEL);
}

int ListBoxModel::Find(int after, const std::string& text, bool whole) const {
    const std::string wanted = win32::FoldCase(text);
    const int count = static_cast<int>(items_.size());
    const int start = Valid(after) ? after + 1 : 0;
    for (int i = 0; i < count; ++i) {
        const int index = (start + i) % count;
        const std::string item = win32::FoldCase(items_[static_cast<std::size_t>(index)].text);
        if (whole ? item == wanted : item.starts_with(wanted)) {
            return index;
        }
    }
    return -1;
}

int ListBoxModel::SelectedCount() const {
    return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                          [](const Item& item) { return item.selected; }));
}

int ListBoxModel::Add(std::string text) {
    auto place = items_.end();
    if (HasStyle(LBS_SORT)) {
        place = std::upper_bound(items_.begin(), items_.end(), text,
                                 [](const std::string& added, const Item& item) {
                                     return win32::CompareNoCase(added, item.text) < 0;
                                 });
    }
    const int index = static_cast<int>(place - items_.begin());
    Insert(index, std::move(text));
    return index;
}

void ListBoxModel::Insert(int index, std::string text) {
    start_ = {};
    items_.insert(items_.begin() + index, Item{std::move(text)});
    if (caret_ >= index) {
        ++caret_;
    } else if (caret_ < 0 && MultipleSelection()) {
        caret_ = 0;
    }
    Changed(Change::Items);
}

void ListBoxModel::Remove(int index) {
    start_ = {};
    items_.erase(items_.begin() + index);
    if (caret_ > index) {
        --caret_;
    } else if (caret_ == index) {
        caret_ = MultipleSelection() ? std::min(caret_, static_cast<int>(items_.size()) - 1) : -1;
    }
    Changed(Change::Items);
}

void ListBoxModel::Clear() {
    start_ = {};
    items_.clear();
    caret_ = -1;
    Changed(Change::Items);
}

void ListBoxModel::Select(int index, bool selected) {
    start_ = {};
    items_[static_cast<std::size_t>(index)].selected = selected;
    Changed(Change::Selection);
}

void ListBoxModel::SetCaret(int index) {
    start_ = {};
    if (!MultipleSelection()) {
        for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
            items_[static_cast<std::size_t>(i)].selected = i == index;
        }
    }
    caret_ = index;
    Changed(Change::Selection);
}

bool ListBoxModel::Click(int index) {
    if (!Operable() || !Valid(index)) {
        return false;
    }
    SetCaret(index);
    if (MultipleSelection()) {
        const bool selected = !items_[static_cast<std::size_t>(index)].selected;
        Select(index, selected);
        start_ = {index, selected, items_};
    }
    NotifyOfSelection();
    return true;
}

bool ListBoxModel::ClickTo(int index) {
    if (!MultipleSelection()) {
        return Click(index);
    }
    if (!Operable() || !Valid(index)) {
        return false;
    }
    if (!Valid(start_.index)) {
        start_ = {caret_, true, items_};
    }
    items_ = start_.items;
    const auto [first, last] = std::minmax(start_.index, index);
    for (int i = first; i <= last; ++i) {
        items_[static_cast<std::size_t>(i)].selected = start_.selects;
    }
    caret_ = index;
    Changed(Change::Selection);
    NotifyOfSelection();
    return true;
}

bool ListBoxModel::ClickAll() {
    if (!Operable() || !MultipleSelection()) {
        return false;
    }
    start_ = {};
    for (Item& item : items_) {
        item.selected = true;
    }
    Changed(Change::Selection);
    NotifyOfSelection();
    return true;
}

void ListBoxModel::NotifyOfSelection() {
    if (HasStyle(LBS_NOTIFY)) {
        Notify(LBN_SELCHANGE);
    }
}

}  // namespace mfc
