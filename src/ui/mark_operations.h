#pragma once

#include <string>
#include <vector>

class CListBox;

/// Marks tell which items of a list were drawn before: such an item stands in the list with a "*"
/// in front, and its bare text, joined with the others' by "@", under a key of a profile.
struct MarkKey {
    const char* section;
    std::string key;
    const std::string& profilePath;
};

/// The item's text without a leading "*"; empty outside the list.
std::string BareItemText(const CListBox& list, int index);
/// The same of every selected item (of a single-selection list: its current one), in list order.
std::vector<std::string> SelectedItemTexts(const CListBox& list);

/// Puts the "*" in front of the items that are stored, then stores just the marked items of this
/// list. Without a stored value nothing changes.
void ShowMarks(CListBox& list, const MarkKey& marks);
/// Marks the selected items (of a single-selection list: its current one), in the list and in the
/// profile, where they follow those that are stored already.
void AddMarks(CListBox& list, const MarkKey& marks);
/// Takes the marks of the selected items away in both places.
void RemoveMarks(CListBox& list, const MarkKey& marks);
/// Whether each item is selected or marked; true for an empty list.
bool AllDrawn(const CListBox& list);
