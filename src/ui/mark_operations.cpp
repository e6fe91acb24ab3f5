#include "src/ui/mark_operations.h"

#include <algorithm>
#include <vector>

#include "platform/mfc/CListBox.h"
#include "platform/win32/private_profile.h"
#include "src/core/gbk_text.h"
#include "src/facts/mark_keys.h"
#include "src/ui/CProfileLock.h"
#include "src/ui/settings.h"

namespace {

using Texts = std::vector<std::string>;

std::string ItemText(const CListBox& list, int index) {
    CString text;
    list.GetText(index, text);
    return static_cast<const char*>(text);
}

bool IsMarked(const CListBox& list, int index) {
    return ItemText(list, index).starts_with(kDrawnMark);
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
        SetItemText(list, index, marked ? kDrawnMark + bare : bare);
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

void WriteMarks(const MarkKey& marks, const Texts& texts) {
    std::string value;
    for (const std::string& text : texts) {
        value += (value.empty() ? "" : std::string(1, kMarkSeparator)) + text;
    }
    WritePrivateProfileString(kSettingsSection, marks.key.c_str(), value.c_str(),
                              marks.profilePath.c_str());
}

bool Contains(const Texts& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Leaves the "*" with the items that are stored and no others, and tells which these are, in list
/// order.
Texts MarkStoredItems(CListBox& list, const Texts& stored) {
    Texts marked;
    for (int i = 0; i < list.GetCount(); ++i) {
        const std::string text = BareItemText(list, i);
        SetMarked(list, i, Contains(stored, text));
        if (IsMarked(list, i)) {
            marked.push_back(text);
        }
    }
    return marked;
}

}  // namespace

std::string BareItemText(const CListBox& list, int index) {
    const std::string text = ItemText(list, index);
    return text.starts_with(kDrawnMark) ? text.substr(1) : text;
}

std::vector<std::string> SelectedItemTexts(const CListBox& list) {
    std::vector<std::string> texts;
    for (const int index : SelectedIndexes(list)) {
        texts.push_back(BareItemText(list, index));
    }
    return texts;
}

std::vector<std::string> StoredMarks(const MarkKey& marks) {
    const std::string value = ReadProfileText(kSettingsSection, marks.key, marks.profilePath);
    Texts texts;
    std::size_t begin = 0;
    while (begin < value.size()) {
        const std::size_t end = std::min(FindChar(value, kMarkSeparator, begin), value.size());
        texts.push_back(value.substr(begin, end - begin));
        begin = end + 1;
    }
    return texts;
}

void ShowMarks(CListBox& list, const MarkKey& marks, const std::vector<std::string>& stored) {
    if (stored.empty() || MarkStoredItems(list, stored) == stored) {
        return;
    }
    const CProfileLock lock(marks.profilePath);
    const Texts storedNow = StoredMarks(marks);
    Texts kept = MarkStoredItems(list, storedNow);
    for (const std::string& text : storedNow) {
        if (!Contains(stored, text) && !Contains(kept, text)) {
            kept.push_back(text);
        }
    }
    WriteMarks(marks, kept);
}

void AddMarks(CListBox& list, const MarkKey& marks, const CProfileLock& /*held*/) {
    Texts stored = StoredMarks(marks);
    for (const std::string& text : SelectedItemTexts(list)) {
        if (!Contains(stored, text)) {
            stored.push_back(text);
        }
    }
    MarkStoredItems(list, stored);
    WriteMarks(marks, stored);
}

void RemoveMarks(CListBox& list, const MarkKey& marks, const CProfileLock& /*held*/) {
    Texts stored = StoredMarks(marks);
    for (const std::string& text : SelectedItemTexts(list)) {
        std::erase(stored, text);
    }
    MarkStoredItems(list, stored);
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
