#pragma once

#include <QListView>

namespace mfc {
class ListBoxModel;
}

namespace windows {

/// Shows a list box. Clicks, arrows and the space bar do to it what they do to a list box: with
/// multiple selection a click or the space bar turns an item over and the arrows only move the
/// focus mark, with single selection the arrows select.
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

private:
    class Items;
    void Refresh();
    void MoveTo(int row);

    mfc::ListBoxModel& list_;
    Items* items_;
    bool stale_ = false;
};

}  // namespace windows
