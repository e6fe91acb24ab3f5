#pragma once

#include <string>
#include <vector>

class CListBox;
class CProfileLock;

/// Marks tell which items of a list were drawn before: such an item stands in the list with a "*"
/// in front, and its bare text, joined with the others' by "@", under a key of a profile.
struct MarkKey {
    std::string key;  ///< as in src/facts/mark_keys.h
    const std::string& profilePath;
};

/// The item's text without a leading "*"; empty outside the list.
std::string BareItemText(const CListBox& list, int index);
/// The same of every selected item (of a single-selection list: its current one), in list order.
std::vector<std::string> SelectedItemTexts(const CListBox& list);

/// The stored texts.
std::vector<std::string> StoredMarks(const MarkKey& marks);

/// Puts the "*" in front of the items that are stored, then stores just the marked items of this
/// list. Without a stored value nothing changes. `stored` is to be read before the list's items
/// are: what other programs have marked since then is no item of an older list, and stays.
void ShowMarks(CListBox& list, const MarkKey& marks, const std::vector<std::string>& stored);
/// Marks the selected items (of a single-selection list: its current one), in the list and in the
/// profile, where they follow those that are stored already. The list then shows all marks as they
/// are stored, those of other programs too. The lock is one of the marks' profile.
void AddMarks(CListBox& list, const MarkKey& marks, const CProfileLock& held);
/// Takes the marks of the selected items away in both places, likewise.
void RemoveMarks(CListBox& list, const MarkKey& marks, const CProfileLock& held);
/// Whether each item is selected or marked; true for an empty list.
bool AllDrawn(const CListBox& list);
