#pragma once

#include <QDialog>
#include <functional>

#include "apps/paint/sheet_pages.h"

class QLabel;
class QPushButton;

namespace desk {

/// Shows sheets one at a time as they will be on paper.
class PreviewWindow : public QDialog {
public:
    /// `sheetAt` makes the sheet of an index from 0; there is at least one.
    PreviewWindow(int count, std::function<paint::Sheet(int)> sheetAt,
                  const paint::PlotOptions& options, QWidget* parent);

    /// Of a page upright, as large as the screen has room for.
    QSize sizeHint() const override;

private:
    class Paper;
    void Show(int index);

    int count_;
    std::function<paint::Sheet(int)> sheetAt_;
    int index_ = 0;
    Paper* paper_;
    QLabel* place_;  ///< which page it is, and how large
    QPushButton* back_;
    QPushButton* on_;
};

}  // namespace desk
