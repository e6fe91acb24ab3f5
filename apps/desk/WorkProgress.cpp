#include "apps/desk/WorkProgress.h"

#include <QCoreApplication>
#include <utility>

#include "apps/windows/interface_text.h"

namespace desk {

namespace {
using windows::InterfaceText;

constexpr qint64 kPatienceMilliseconds = 300;
constexpr qint64 kRefreshMilliseconds = 40;
}  // namespace

WorkProgress::WorkProgress(QWidget* parent) : parent_(parent) {
    idle_.setSingleShot(true);
    idle_.callOnTimeout([this] {
        if (!refreshing_) {
            Pause();
        }
    });
}

bool WorkProgress::Step() {
    if (!ended_) {
        ++steps_;
        Refresh(InterfaceText("At work: %1 done.", "正在处理：已完成 %1。").arg(steps_));
    }
    return ended_;
}

bool WorkProgress::Wait() {
    if (!ended_) {
        Refresh(InterfaceText("Waiting for the database, which another program has locked.",
                              "数据库被其他程序锁定，正在等待。"));
    }
    return ended_;
}

void WorkProgress::Refresh(const QString& label) {
    if (!running_.isValid()) {
        running_.start();
    }
    if (running_.elapsed() < kPatienceMilliseconds ||
        (shown_.isValid() && shown_.elapsed() < kRefreshMilliseconds)) {
        return;
    }
    if (window_ == nullptr) {
        window_ = std::make_unique<QProgressDialog>(parent_);
        window_->setWindowTitle(InterfaceText("Please Wait", "请稍候"));
        window_->setCancelButtonText(InterfaceText("Cancel", "取消"));
        window_->setRange(0, 0);  // nobody knows how much there is
        window_->setWindowModality(Qt::ApplicationModal);
        window_->show();
    }
    window_->setLabelText(label);
    refreshing_ = true;
    QCoreApplication::processEvents();
    refreshing_ = false;
    ended_ = window_->wasCanceled();
    shown_.start();
    idle_.start();
}

void WorkProgress::Pause() {
    window_.reset();
    running_.invalidate();
    shown_.invalidate();
}

std::optional<int> WorkProgress::End() {
    Pause();
    const int done = std::exchange(steps_, 0);
    return std::exchange(ended_, false) ? std::optional(done) : std::nullopt;
}

}  // namespace desk
