#pragma once

#include "platform/mfc/CWnd.h"

inline constexpr int LB_OKAY = 0;
inline constexpr int LB_ERR = -1;

/// A list of texts, indexes from 0. With LBS_SORT AddString keeps them in order without regard to
/// case. With LBS_MULTIPLESEL each click turns an item on or off, and the current item is the one
/// with the focus mark, selected or not.
class CListBox : public CWnd {
public:
    int GetCount() const;
    /// Index of the new item: in its place when the list is sorted, else at the end.
    int AddString(const char* text);
    /// At `index`, -1 for the end, also in a sorted list. LB_ERR outside the list.
    int InsertString(int index, const char* text);
    /// Number of items left, LB_ERR outside the list.
    int DeleteString(UINT index);
    void ResetContent();

    /// An empty text outside the list.
    void GetText(int index, CString& text) const;
    /// Single selection: selects the first item after `after` that begins with `text` without
    /// regard to case, looked for round to it again. Its index, LB_ERR when there is none.
    int SelectString(int after, const char* text);

    /// Single selection: the selected item. Multiple selection: the item with the focus mark,
    /// which is the first one until something moves it. LB_ERR when there is none.
    int GetCurSel() const;
    /// Single selection: selects the item, -1 none. Multiple selection: moves the focus mark and
    /// selects nothing. LB_ERR outside the list and for -1.
    int SetCurSel(int index);
    /// Above 0 if selected, 0 if not, LB_ERR outside the list.
    int GetSel(int index) const;
    /// Multiple selection only, else LB_ERR, as for GetSelCount and GetSelItems: turns an item,
    /// or with -1 all items, on or off.
    int SetSel(int index, BOOL select = TRUE);
    int GetSelCount() const;
    /// Writes the first `max` selected indexes, ascending, and returns their number.
    int GetSelItems(int max, int* indexes) const;
};
