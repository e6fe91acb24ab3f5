#include "apps/desk/CommandLine.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/windows/interface_text.h"

namespace desk {

namespace {
constexpr int kHistoryLines = 3;
constexpr int kKeptLines = 5000;

/// Modifiers alone and function keys say nothing to the line.
bool Speaks(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
        case Qt::Key_Delete:
        case Qt::Key_Up:
        case Qt::Key_Down:
            return true;
        default:
            return !event.text().isEmpty();
    }
}

QString IdlePrompt() {
    return windows::InterfaceText("Command:", "命令:");
}
}  // namespace

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent),
      history_(new QPlainTextEdit(this)),
      prompt_(new QLabel(IdlePrompt(), this)),
      edit_(new QLineEdit(this)) {
    history_->setReadOnly(true);
    history_->setFocusPolicy(Qt::ClickFocus);
    history_->setMaximumBlockCount(kKeptLines);
    history_->setObjectName(QStringLiteral("history"));
    history_->setMinimumHeight(fontMetrics().lineSpacing() * kHistoryLines + 10);
    prompt_->setTextFormat(Qt::PlainText);
    prompt_->setObjectName(QStringLiteral("prompt"));
    edit_->setObjectName(QStringLiteral("command"));
    edit_->setFrame(false);
    edit_->installEventFilter(this);

    auto* const line = new QHBoxLayout();
    line->setContentsMargins(4, 0, 4, 2);
    line->addWidget(prompt_);
    line->addWidget(edit_);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(history_);
    column->addLayout(line);
}

void CommandLine::Print(const QString& text) {
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0) {
            EndLine();
        }
        openLine_ += lines[i];
    }
}

void CommandLine::EndLine() {
    if (!openLine_.isEmpty()) {
        history_->appendPlainText(openLine_);
        openLine_.clear();
    }
}

void CommandLine::ShowWaiting(bool waiting) {
    if (!waiting) {
        EndLine();
    }
    prompt_->setText(waiting ? openLine_ : IdlePrompt());
}

QString CommandLine::History() const {
    return history_->toPlainText() + QLatin1Char('\n') + openLine_;
}

void CommandLine::Forward(QKeyEvent* event) {
    // What the line has no use for goes up to the window, and the window forwards it again.
    if (event == forwarded_ || !Speaks(*event)) {
        event->ignore();
        return;
    }
    const QScopedValueRollback<const QKeyEvent*> rollback(forwarded_, event);
    edit_->setFocus();
    QCoreApplication::sendEvent(edit_, event);
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event) {
    // Undo and redo mean the drawing while no word is being typed.
    if (event->type() == QEvent::ShortcutOverride && edit_->text().isEmpty()) {
        event->ignore();
        return true;
    }
    return (event->type() == QEvent::KeyPress && HandleKey(static_cast<QKeyEvent*>(event))) ||
           QWidget::eventFilter(watched, event);
}

bool CommandLine::HandleKey(QKeyEvent* event) {
    const bool empty = edit_->text().isEmpty();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Enter();
            return true;
        case Qt::Key_Space:
            if (empty) {
                Enter();
            }
            return empty;
        case Qt::Key_Escape:
            if (!empty) {
                edit_->clear();
            } else if (onEscape_) {
                onEscape_();
            }
            return true;
        case Qt::Key_Delete:
            if (empty && onDelete_) {
                onDelete_();
            }
            return empty;
        case Qt::Key_Up:
            Recall(-1);
            return true;
        case Qt::Key_Down:
            Recall(1);
            return true;
        default:
            return false;
    }
}

void CommandLine::Enter() {
    const QString line = edit_->text();
    edit_->clear();
    if (!line.isEmpty() && (typed_.isEmpty() || typed_.back() != line)) {
        typed_.push_back(line);
    }
    recalled_ = typed_.size();
    Echo(line);
    if (onLine_) {
        onLine_(line);
    }
}

void CommandLine::Echo(const QString& line) {
    openLine_.clear();  // it stands as the prompt
    history_->appendPlainText((prompt_->text() + QLatin1Char(' ') + line).trimmed());
}

void CommandLine::AskAgain(const QString& why) {
    EndLine();
    history_->appendPlainText(why);
    openLine_ = prompt_->text();
}

void CommandLine::Recall(int step) {
    recalled_ = std::clamp(recalled_ + step, qsizetype{0}, typed_.size());
    edit_->setText(recalled_ < typed_.size() ? typed_[recalled_] : QString());
}

}  // namespace desk
