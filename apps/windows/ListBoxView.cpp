#include "apps/windows/ListBoxView.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "apps/windows/qt_text.h"
#include "platform/mfc/ListBoxModel.h"

namespace windows {

/// The list's items as the toolkit's views ask for them.
class ListBoxView::Items : public QAbstractListModel {
public:
    Items(const mfc::ListBoxModel& list, QObject* parent)
        : QAbstractListModel(parent), list_(list) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : count_;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !list_.Valid(index.row())) {
            return {};
        }
        return FromGbk(list_.Items()[static_cast<std::size_t>(index.row())].text);
    }
    void Reload() {
        beginResetModel();
        count_ = static_cast<int>(list_.Items().size());
        endResetModel();
    }

private:
    const mfc::ListBoxModel& list_;
    int count_ = 0;
};

ListBoxView::ListBoxView(mfc::ListBoxModel& list, QWidget* parent)
    : QListView(parent), list_(list), items_(new Items(list, this)) {
    setModel(items_);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setSelectionMode(list.MultipleSelection() ? MultiSelection : SingleSelection);
    Refresh();
}

void ListBoxView::NoteChange() {
    if (!stale_) {
        stale_ = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void ListBoxView::customEvent(QEvent* /*event*/) {
    Refresh();
}

void ListBoxView::Refresh() {
    stale_ = false;
    items_->Reload();
    QItemSelection selection;
    for (int row = 0; row < items_->rowCount(); ++row) {
        if (list_.Items()[static_cast<std::size_t>(row)].selected) {
            selection.select(items_->index(row), items_->index(row));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const QModelIndex caret = items_->index(list_.Caret());
    selectionModel()->setCurrentIndex(caret, QItemSelectionModel::NoUpdate);
    if (caret.isValid()) {
        scrollTo(caret);
    }
}

QItemSelectionModel::SelectionFlags ListBoxView::selectionCommand(const QModelIndex& /*index*/,
                                                                  const QEvent* /*event*/) const {
    return QItemSelectionModel::NoUpdate;
}

void ListBoxView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        list_.ClickTo(index.row());
    } else {
        list_.Click(index.row());
    }
}

// Dragging over a list does no more than a click, which a press has done.
void ListBoxView::mouseMoveEvent(QMouseEvent* /*event*/) {}
void ListBoxView::mouseReleaseEvent(QMouseEvent* /*event*/) {}

/// Two clicks mean the item, not to have it and then not.
void ListBoxView::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = indexAt(event->pos()).row();
    if (row != list_.Caret() || !list_.Valid(row) ||
        !list_.Items()[static_cast<std::size_t>(row)].selected) {
        mousePressEvent(event);
    }
}

void ListBoxView::MoveTo(int row, bool drawing) {
    const int last = static_cast<int>(list_.Items().size()) - 1;
    const int target = std::min(std::max(row, 0), last);
    if (target == list_.Caret()) {
        return;
    }
    if (drawing) {
        list_.ClickTo(target);
    } else if (list_.MultipleSelection()) {
        list_.SetCaret(target);
    } else {
        list_.Click(target);
    }
}

void ListBoxView::keyPressEvent(QKeyEvent* event) {
    const int page = std::max(1, viewport()->height() / std::max(1, sizeHintForRow(0)) - 1);
    const bool drawing = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->matches(QKeySequence::SelectAll)) {
        list_.ClickAll();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Left:
            return MoveTo(list_.Caret() - 1, drawing);
        case Qt::Key_Down:
        case Qt::Key_Right:
            return MoveTo(list_.Caret() + 1, drawing);
        case Qt::Key_PageUp:
            return MoveTo(list_.Caret() - page, drawing);
        case Qt::Key_PageDown:
            return MoveTo(list_.Caret() + page, drawing);
        case Qt::Key_Home:
            return MoveTo(0, drawing);
        case Qt::Key_End:
            return MoveTo(static_cast<int>(list_.Items().size()) - 1, drawing);
        case Qt::Key_Space:
            if (list_.MultipleSelection()) {
                list_.Click(list_.Caret());
            }
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            return event->ignore();  // the dialog's
        default:
            QListView::keyPressEvent(event);
    }
}

void ListBoxView::keyboardSearch(const QString& search) {
    const int found = list_.Find(list_.Caret(), ToGbk(search), false);
    if (found >= 0) {
        MoveTo(found);
    }
}

}  // namespace windows
