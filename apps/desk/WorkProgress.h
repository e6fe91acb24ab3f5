#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QProgressDialog>
#include <QTimer>
#include <optional>

namespace desk {

/// Shows that work goes on once that takes longer than a person waits without a sign, and takes the
/// wish to end it. While it shows nothing else takes input, so it gives way to every other modal
/// window before that is seen, and comes back when the work goes on.
class WorkProgress : private QObject {
public:
    explicit WorkProgress(QWidget* parent);
    ~WorkProgress() override;

    /// A step of the work is done and another is to follow. True when the user wants it to end.
    bool Step();
    /// Likewise, of work whose number of steps is known; `label` says what it is.
    bool Step(const QString& label, int total);
    /// The work waits for a database that another program has locked. True when the user does not
    /// want to wait.
    bool Wait();
    /// The time from here to the next step does not count.
    void Pause();
    /// The work is over. Answers after how many steps the user has ended it; nothing when it came
    /// to its own end.
    std::optional<int> End();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void Refresh(const QString& label, int total);
    void MakeWindow();

    QWidget* parent_;
    QPointer<QProgressDialog> window_;  ///< goes with the window that it stands before
    QElapsedTimer running_;             ///< since the first step after a pause
    QElapsedTimer shown_;               ///< since the window was last brought up to date
    QTimer idle_;  ///< comes when the work has gone back to a window of its own
    bool refreshing_ = false;
    int steps_ = 0;
    bool ended_ = false;
};

}  // namespace desk
