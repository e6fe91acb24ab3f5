#include "apps/desk/WorkProgress.h"

#include <QApplication>
#include <QEvent>
#include <QProgressBar>
#include <utility>

#include "apps/windows/interface_text.h"

namespace desk {

namespace {
using windows::InterfaceText;

constexpr qint64 kPatienceMilliseconds = 300;
constexpr qint64 kRefreshMilliseconds = 40;
constexpr int kUnknownTotal = 0;
}  // namespace

WorkProgress::WorkProgress(QWidget* parent) : parent_(parent) {
    idle_.setSingleShot(true);
    idle_.callOnTimeout([this] {
        if (!refreshing_) {
            Pause();
        }
    });
    qApp->installEventFilter(this);
}

WorkProgress::~WorkProgress() {
    Pause();
}

bool WorkProgress::Step() {
    return Step(InterfaceText("At work: %1 done.", "正在处理：已完成 %1。").arg(steps_ + 1),
                kUnknownTotal);
}

bool WorkProgress::Step(const QString& label, int total) {
    if (!ended_) {
        ++steps_;
        Refresh(label, total);
    }
    return ended_;
}

bool WorkProgress::Wait() {
    if (!ended_) {
        Refresh(InterfaceText("Waiting for the database, which another program has locked.",
                              "数据库被其他程序锁定，正在等待。"),
                kUnknownTotal);
    }
    return ended_;
}

void WorkProgress::Refresh(const QString& label, int total) {
    if (!running_.isValid()) {
        running_.start();
    }
    if (running_.elapsed() < kPatienceMilliseconds ||
        (shown_.isValid() && shown_.elapsed() < kRefreshMilliseconds)) {
        return;
    }
    if (window_ == nullptr) {
        MakeWindow();
    }
    window_->setLabelText(label);
    window_->setRange(0, total);
    // The dialog's own setValue runs events, in which the dialog may go.
    window_->findChild<QProgressBar*>()->setValue(total == kUnknownTotal ? 0 : steps_);
    refreshing_ = true;
    QCoreApplication::processEvents();
    refreshing_ = false;
    if (window_ == nullptr) {  // has given way meanwhile
        return;
    }
    ended_ = window_->wasCanceled();
    shown_.start();
    idle_.start();
}

void WorkProgress::MakeWindow() {
    QWidget* const front = QApplication::activeModalWidget();
    window_ = new QProgressDialog(front != nullptr ? front : parent_);
    window_->setWindowTitle(InterfaceText("Please Wait", "请稍候"));
    window_->setCancelButtonText(InterfaceText("Cancel", "取消"));
    window_->setAutoReset(false);
    window_->setWindowModality(Qt::ApplicationModal);
    window_->show();
}

/// A window that wants an answer could not get one while this one takes the input.
bool WorkProgress::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType() && watched != window_) {
        const auto* const window = static_cast<QWidget*>(watched);
        if (window->isWindow() && window->isModal()) {
            Pause();
        }
    }
    return false;
}

void WorkProgress::Pause() {
    delete window_;
    running_.invalidate();
    shown_.invalidate();
}

std::optional<int> WorkProgress::End() {
    Pause();
    const int done = std::exchange(steps_, 0);
    return std::exchange(ended_, false) ? std::optional(done) : std::nullopt;
}

}  // namespace desk
