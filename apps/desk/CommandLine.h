#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace desk {

/// The command line: what was said and typed above, below it the prompt and the line being typed.
/// Enter, and the space bar on an empty line, hand the line over; Up and Down bring back lines
/// typed before; Esc first empties the line.
class CommandLine : public QWidget {
public:
    explicit CommandLine(QWidget* parent);

    /// Prints a text as it stands: its line breaks begin new lines.
    void Print(const QString& text);
    /// Shows that a command waits: what was printed last is its prompt. Otherwise the program
    /// waits for a command.
    void ShowWaiting(bool waiting);
    /// Writes a line below the others as if it had been typed after the prompt.
    void Echo(const QString& line);
    /// Tells why an answer will not do, and asks again.
    void AskAgain(const QString& why);
    /// Everything printed and entered so far.
    QString History() const;
    /// Takes a key that was pressed elsewhere in the window; ignores one that says nothing here.
    void Forward(QKeyEvent* event);
    QLineEdit* Edit() const { return edit_; }

    void SetLineHandler(std::function<void(const QString&)> handler) {
        onLine_ = std::move(handler);
    }
    /// Called for Esc on an empty line.
    void SetEscapeHandler(std::function<void()> handler) { onEscape_ = std::move(handler); }
    /// Called for Delete on an empty line.
    void SetDeleteHandler(std::function<void()> handler) { onDelete_ = std::move(handler); }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool HandleKey(QKeyEvent* event);
    void Enter();
    void Recall(int step);
    void EndLine();

    QPlainTextEdit* history_;
    QLabel* prompt_;
    QLineEdit* edit_;
    QString openLine_;  ///< printed and without a line break so far
    QStringList typed_;
    qsizetype recalled_ = 0;  ///< index in typed_, its size for the line being typed
    const QKeyEvent* forwarded_ = nullptr;
    std::function<void(const QString&)> onLine_;
    std::function<void()> onEscape_;
    std::function<void()> onDelete_;
};

}  // namespace desk
