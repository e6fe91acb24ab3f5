#pragma once

#include <QItemSelectionModel>
#include <QListView>

namespace mfc {
class ListBoxModel;
}

namespace windows {

/// Shows a list box; what is highlighted is what the list says is selected, and nothing else. With
/// multiple selection a click or the space bar turns an item over, a double click leaves it
/// selected, Shift draws a range, Ctrl+A selects all, and the arrows only move the focus mark. With
/// single selection clicks and arrows select.
class ListBoxView : public QListView {
public:
    explicit ListBoxView(mfc::ListBoxModel& list, QWidget* parent);

    /// The list has changed. What is seen follows before the next event, so that a list filled item
    /// by item is laid out once.
    void NoteChange();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The change noted last is shown.
    void customEvent(QEvent* event) override;
    void keyboardSearch(const QString& search) override;
    /// Never any: the list selects.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    class Items;
    void Refresh();
    /// With `drawing` the items on the way become a range.
    void MoveTo(int row, bool drawing = false);

    mfc::ListBoxModel& list_;
    Items* items_;
    bool stale_ = false;
};

}  // namespace windows
