#pragma once

#include <vector>

#include "platform/mfc/WindowModel.h"

namespace mfc {

/// State of a list box; indexes from 0.
class ListBoxModel : public WindowModel {
public:
    struct Item {
        std::string text;
        bool selected = false;
    };

    ListBoxModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect);

    const std::vector<Item>& Items() const { return items_; }
    bool MultipleSelection() const;
    bool Valid(int index) const {
        return index >= 0 && static_cast<std::size_t>(index) < items_.size();
    }
    /// The item with the focus mark; -1 in an empty list and in a single-selection list without a
    /// selected item.
    int Caret() const { return caret_; }
    /// Index of the item that equals `text`, or begins with it, without regard to case; looked for
    /// after `after` and round to it again. -1 when there is none.
    int Find(int after, const std::string& text, bool whole) const;
    int SelectedCount() const;

    int Add(std::string text);
    void Insert(int index, std::string text);
    void Remove(int index);
    void Clear();
    void Select(int index, bool selected);
    /// Moves the focus mark, in a single-selection list with the selection; -1 for none.
    void SetCaret(int index);

    /// The user clicks an item, which is told to the parent with LBS_NOTIFY.
    /// False also outside the list.
    bool Click(int index);
    /// Multiple selection: the user draws a range from the item clicked last, or else from the
    /// focus mark, to this one. It becomes selected, or not, as the click left its item; what a
    /// range drawn before from there has changed outside it is as it was. Otherwise a click.
    bool ClickTo(int index);
    /// Multiple selection: the user chooses every item. False otherwise.
    bool ClickAll();

private:
    /// Where a range begins, and what the items were then.
    struct RangeStart {
        int index = -1;  ///< none
        bool selects = true;
        std::vector<Item> items;
    };

    void NotifyOfSelection();

    std::vector<Item> items_;
    int caret_ = -1;
    RangeStart start_;
};

}  // namespace mfc
