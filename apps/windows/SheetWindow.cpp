#include "apps/windows/SheetWindow.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "apps/windows/DialogPane.h"
#include "apps/windows/qt_text.h"
#include "apps/windows/standard_button.h"
#include "platform/mfc/message_box.h"

namespace windows {

SheetWindow::SheetWindow(mfc::SheetModel& sheet, QWidget* parent)
    : ModalWindow(sheet, parent),
      sheet_(sheet),
      units_(font()),
      tabs_(new QTabWidget(this)),
      panes_(sheet.Tabs().size()) {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(tabs_);
    AddTabs();
    AddButtons();
    column->setSizeConstraint(QLayout::SetFixedSize);
    ShowPages();
}

void SheetWindow::AddTabs() {
    QSize size(0, 0);
    for (const mfc::SheetModel::Tab& tab : sheet_.Tabs()) {
        size = size.expandedTo(units_.ToPixels({0, 0, tab.rect.width, tab.rect.height}).size());
    }
    for (const mfc::SheetModel::Tab& tab : sheet_.Tabs()) {
        auto* const page = new QWidget(tabs_);
        page->setMinimumSize(size);
        tabs_->addTab(page, FromGbk(tab.caption));
    }
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        sheet_.ClickTab(static_cast<std::size_t>(index));
        ShowPages();
    });
}

void SheetWindow::AddButtons() {
    auto* const row = new QHBoxLayout();
    row->addStretch();
    for (const int id : {IDOK, IDCANCEL}) {
        // As the pages that they stand under.
        auto* const button = new QPushButton(StandardButtonText(id, true), this);
        button->setObjectName(QStringLiteral("control %1").arg(id));
        button->setDefault(id == IDOK);
        connect(button, &QPushButton::clicked, this, [this, id] { sheet_.Command(id); });
        row->addWidget(button);
        buttons_.push_back(button);
    }
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void SheetWindow::ShowPages() {
    for (std::size_t i = 0; i < panes_.size(); ++i) {
        mfc::DialogModel* const page = sheet_.Tabs()[i].page;
        if (page != nullptr && panes_[i] == nullptr) {
            panes_[i] = new DialogPane(*page, units_, tabs_->widget(static_cast<int>(i)));
            panes_[i]->show();
            ChainTabs();
        }
    }
    if (sheet_.ActivePage() < 0) {
        return;
    }
    const QSignalBlocker blocked(tabs_);
    tabs_->setCurrentIndex(sheet_.ActivePage());
    DialogPane* const front = panes_[static_cast<std::size_t>(sheet_.ActivePage())];
    if (front != nullptr && !tabs_->tabBar()->hasFocus()) {
        front->TakeFocus();
    }
}

/// From the tabs through the pages to the buttons; controls that are not seen are passed over.
void SheetWindow::ChainTabs() {
    QWidget* last = tabs_->tabBar();
    for (DialogPane* const pane : panes_) {
        last = pane != nullptr ? pane->ChainTabs(last) : last;
    }
    for (QPushButton* const button : buttons_) {
        setTabOrder(last, button);
        last = button;
    }
}

void SheetWindow::Show(const mfc::WindowModel& window, mfc::Change change) {
    if (change == mfc::Change::ActivePage) {
        return ShowPages();
    }
    for (DialogPane* const pane : panes_) {
        if (pane != nullptr) {
            pane->Show(window, change);
        }
    }
}

}  // namespace windows
