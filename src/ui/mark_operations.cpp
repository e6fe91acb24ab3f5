#include "src/ui/mark_operations.h"

#include <algorithm>
#include <vector>

#include "platform/mfc/CListBox.h"
#include "platform/win32/code_page.h"
#include "platform/win32/private_profile.h"
#include "src/ui/profile_text.h"

namespace {

constexpr char kMark = '*';
constexpr char kSeparator = '@';

using Texts = std::vector<std::string>;

std::string ItemText(const CListBox& list, int index) {
    CString text;
    list.GetText(index, text);
    return static_cast<const char*>(text);
}

bool IsMarked(const CListBox& list, int index) {
    return ItemText(list, index).starts_with(kMark);
}

/// Gives the item another text in its place and leaves the selection as it is.
void SetItemText(CListBox& list, int index, const std::string& text) {
    const int current = list.GetCurSel();
    const bool selected = list.GetSel(index) > 0;
    list.DeleteString(static_cast<UINT>(index));
    list.InsertString(index, text.c_str());
    if (selected) {
        list.SetSel(index);  // has no effect on a single-selection list
    }
    list.SetCurSel(current);
}

void SetMarked(CListBox& list, int index, bool marked) {
    if (IsMarked(list, index) != marked) {
        const std::string bare = BareItemText(list, index);
        SetItemText(list, index, marked ? kMark + bare : bare);
    }
}

std::vector<int> SelectedIndexes(const CListBox& list) {
    const int count = list.GetSelCount();
    if (count == LB_ERR) {  // single selection
        const int current = list.GetCurSel();
        return current == LB_ERR ? std::vector<int>() : std::vector<int>{current};
    }
    std::vector<int> indexes(static_cast<std::size_t>(count));
    list.GetSelItems(count, indexes.data());
    return indexes;
}

Texts ReadMarks(const MarkKey& marks) {
    const std::string value = ReadProfileText(marks.section, marks.key, marks.profilePath);
    Texts texts;
    std::size_t begin = 0;
    while (begin < value.size()) {
        const std::size_t end = std::min(win32::FindChar(value, kSeparator, begin), value.size());
        texts.push_back(value.substr(begin, end - begin));
        begin = end + 1;
    }
    return texts;
}

void WriteMarks(const MarkKey& marks, const Texts& texts) {
    std::string value;
    for (const std::string& text : texts) {
        value += (value.empty() ? "" : std::string(1, kSeparator)) + text;
    }
    WritePrivateProfileString(marks.section, marks.key.c_str(), value.c_str(),
                              marks.profilePath.c_str());
}

bool Contains(const Texts& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

std::string BareItemText(const CListBox& list, int index) {
    const std::string text = ItemText(list, index);
    return text.starts_with(kMark) ? text.substr(1) : text;
}

std::vector<std::string> SelectedItemTexts(const CListBox& list) {
    std::vector<std::string> texts;
    for (const int index : SelectedIndexes(list)) {
        texts.push_back(BareItemText(list, index));
    }
    return texts;
}

void ShowMarks(CListBox& list, const MarkKey& marks) {
    const Texts stored = ReadMarks(marks);
    if (stored.empty()) {
        return;
    }
    Texts shown;
    for (int i = 0; i < list.GetCount(); ++i) {
        if (Contains(stored, ItemText(list, i))) {
            SetMarked(list, i, true);
        }
        if (IsMarked(list, i)) {
            shown.push_back(BareItemText(list, i));
        }
    }
    WriteMarks(marks, shown);
}

void AddMarks(CListBox& list, const MarkKey& marks) {
    Texts stored = ReadMarks(marks);
    for (const int index : SelectedIndexes(list)) {
        const std::string bare = BareItemText(list, index);
        if (!Contains(stored, bare)) {
            stored.push_back(bare);
        }
        SetMarked(list, index, true);
    }
    WriteMarks(marks, stored);
}

void RemoveMarks(CListBox& list, const MarkKey& marks) {
    Texts stored = ReadMarks(marks);
    for (const int index : SelectedIndexes(list)) {
        std::erase(stored, BareItemText(list, index));
        SetMarked(list, index, false);
    }
    WriteMarks(marks, stored);
}

bool AllDrawn(const CListBox& list) {
    for (int i = 0; i < list.GetCount(); ++i) {
        if (list.GetSel(i) <= 0 && !IsMarked(list, i)) {
            return false;
        }
    }
    return true;
}
