#include "platform/mfc/CListBox.h"

#include <stdexcept>

#include "platform/mfc/ListBoxModel.h"

namespace {

mfc::ListBoxModel& ListOf(mfc::WindowModel& window) {
    auto* list = dynamic_cast<mfc::ListBoxModel*>(&window);
    if (list == nullptr) {
        throw std::logic_error("control " + std::to_string(window.Id()) + " is no list box");
    }
    return *list;
}

}  // namespace

int CListBox::GetCount() const {
    return static_cast<int>(ListOf(RequireModel()).Items().size());
}

int CListBox::AddString(const char* text) {
    return ListOf(RequireModel()).Add(text);
}

int CListBox::InsertString(int index, const char* text) {
    const int place = index == -1 ? GetCount() : index;
    if (place < 0 || place > GetCount()) {
        return LB_ERR;
    }
    ListOf(RequireModel()).Insert(place, text);
    return place;
}

int CListBox::DeleteString(UINT index) {
    if (index >= static_cast<UINT>(GetCount())) {
        return LB_ERR;
    }
    ListOf(RequireModel()).Remove(static_cast<int>(index));
    return GetCount();
}

void CListBox::ResetContent() {
    ListOf(RequireModel()).Clear();
}

void CListBox::GetText(int index, CString& text) const {
    const mfc::ListBoxModel& list = ListOf(RequireModel());
    text = list.Valid(index) ? list.Items()[static_cast<std::size_t>(index)].text.c_str() : "";
}

int CListBox::SelectString(int after, const char* text) {
    mfc::ListBoxModel& list = ListOf(RequireModel());
    const int found = list.MultipleSelection() ? LB_ERR : list.Find(after, text, false);
    if (found != LB_ERR) {
        list.SetCaret(found);
    }
    return found;
}

int CListBox::GetCurSel() const {
    return ListOf(RequireModel()).Caret();
}

int CListBox::SetCurSel(int index) {
    mfc::ListBoxModel& list = ListOf(RequireModel());
    if (index != -1 && !list.Valid(index)) {
        return LB_ERR;
    }
    if (index != -1 || !list.MultipleSelection()) {
        list.SetCaret(index);
    }
    return index;
}

int CListBox::GetSel(int index) const {
    const mfc::ListBoxModel& list = ListOf(RequireModel());
    if (!list.Valid(index)) {
        return LB_ERR;
    }
    return list.Items()[static_cast<std::size_t>(index)].selected ? 1 : 0;
}

int CListBox::SetSel(int index, BOOL select) {
    mfc::ListBoxModel& list = ListOf(RequireModel());
    if (!list.MultipleSelection() || (index != -1 && !list.Valid(index))) {
        return LB_ERR;
    }
    const int first = index == -1 ? 0 : index;
    const int last = index == -1 ? GetCount() - 1 : index;
    for (int i = first; i <= last; ++i) {
        list.Select(i, select != FALSE);
    }
    return LB_OKAY;
}

int CListBox::GetSelCount() const {
    const mfc::ListBoxModel& list = ListOf(RequireModel());
    return list.MultipleSelection() ? list.SelectedCount() : LB_ERR;
}

int CListBox::GetSelItems(int max, int* indexes) const {
    const mfc::ListBoxModel& list = ListOf(RequireModel());
    if (!list.MultipleSelection()) {
        return LB_ERR;
    }
    int count = 0;
    for (int i = 0; i < GetCount() && count < max; ++i) {
        if (list.Items()[static_cast<std::size_t>(i)].selected) {
            indexes[count++] = i;
        }
    }
    return count;
}
