#include "apps/desk/PreviewWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "apps/windows/interface_text.h"

namespace desk {

using windows::InterfaceText;

/// The page as large as it fits, on a desk.
class PreviewWindow::Paper : public QWidget {
public:
    Paper(const paint::PlotOptions& options, QWidget* parent)
        : QWidget(parent), look_(PaperLook(options)) {
        look_.leastLineWidth = 1.0;
        setMinimumSize(kLeast, kLeast);
    }

    void Show(paint::Sheet sheet) {
        sheet_ = std::move(sheet);
        update();
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().dark());
        const QRectF room = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
        const paint::Page page = paint::PageOf(sheet_.list);
        QRectF paper(QPointF(),
                     QSizeF(page.width, page.height).scaled(room.size(), Qt::KeepAspectRatio));
        paper.moveCenter(room.center());
        painter.fillRect(paper, Qt::white);
        painter.setClipRect(paper);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintSheet(painter, sheet_, paper, pictures_, look_);
    }

    static constexpr int kLeast = 200;
    static constexpr int kMargin = 12;
    paint::Look look_;
    paint::Sheet sheet_;
    paint::PicturePainter pictures_;
};

PreviewWindow::PreviewWindow(int count, std::function<paint::Sheet(int)> sheetAt,
                             const paint::PlotOptions& options, QWidget* parent)
    : QDialog(parent),
      count_(count),
      sheetAt_(std::move(sheetAt)),
      paper_(new Paper(options, this)),
      place_(new QLabel(this)),
      back_(new QPushButton(InterfaceText("&Previous", "上一页(&P)"), this)),
      on_(new QPushButton(InterfaceText("&Next", "下一页(&N)"), this)) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    place_->setTextFormat(Qt::PlainText);
    place_->setObjectName(QStringLiteral("page"));
    paper_->setObjectName(QStringLiteral("paper"));
    on_->setObjectName(QStringLiteral("next"));
    auto* const close = new QPushButton(InterfaceText("Close", "关闭"), this);
    close->setDefault(true);
    auto* const row = new QHBoxLayout();
    row->addWidget(back_);
    row->addWidget(on_);
    row->addWidget(place_, 1);
    row->addWidget(close);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(paper_, 1);
    column->addLayout(row);
    connect(back_, &QPushButton::clicked, this, [this] { Show(index_ - 1); });
    connect(on_, &QPushButton::clicked, this, [this] { Show(index_ + 1); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    Show(0);
}

QSize PreviewWindow::sizeHint() const {
    constexpr double kShareOfScreen = 0.85;
    return QSize(620, 760).boundedTo(screen()->availableSize() * kShareOfScreen);
}

void PreviewWindow::Show(int index) {
    index_ = index;
    paint::Sheet sheet = sheetAt_(index);
    const paint::Page page = paint::PageOf(sheet.list);
    setWindowTitle(InterfaceText("Preview", "预览") + QStringLiteral(" - ") + sheet.title);
    place_->setText(InterfaceText("Page %1 of %2, %3 × %4 mm", "第 %1 页，共 %2 页，%3 × %4 mm")
                        .arg(index + 1)
                        .arg(count_)
                        .arg(page.width, 0, 'f', 0)
                        .arg(page.height, 0, 'f', 0));
    back_->setEnabled(index > 0);
    on_->setEnabled(index + 1 < count_);
    paper_->Show(std::move(sheet));
}

}  // namespace desk
