#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QTimer>
#include <memory>
#include <optional>

namespace desk {

/// Shows that a command is at work once that takes longer than a person waits without a sign, and
/// takes the wish to end it. While it shows nothing else takes input.
class WorkProgress {
public:
    explicit WorkProgress(QWidget* parent);

    /// A step of the work is done and another is to follow. True when the user wants it to end.
    bool Step();
    /// The work waits for a database that another program has locked. True when the user does not
    /// want to wait.
    bool Wait();
    /// A window of the command's own comes to the front: the time that it is there does not count.
    void Pause();
    /// The command is over. Answers after how many steps the user has ended it; nothing when it
    /// came to its own end.
    std::optional<int> End();

private:
    void Refresh(const QString& label);

    QWidget* parent_;
    std::unique_ptr<QProgressDialog> window_;
    QElapsedTimer running_;  ///< since the first step after a pause
    QElapsedTimer shown_;    ///< since the window was last brought up to date
    QTimer idle_;            ///< comes when the work has gone back to a window of its own
    bool refreshing_ = false;
    int steps_ = 0;
    bool ended_ = false;
};

}  // namespace desk
