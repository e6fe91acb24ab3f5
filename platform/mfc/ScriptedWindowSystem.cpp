#include "platform/mfc/ScriptedWindowSystem.h"

#include "platform/mfc/apply_answer.h"
#include "platform/mfc/window_text.h"

namespace mfc {
namespace {
/// How often a dialog that stays open may ask the source: a person gives up sooner.
constexpr int kMaxRounds = 100;
}  // namespace

void ScriptedWindowSystem::Fail(const std::string& reason) {
    if (error_.empty()) {
        error_ = reason;
    }
}

void ScriptedWindowSystem::Reset() {
    answers_.clear();
    shown_.clear();
    error_.clear();
}

void ScriptedWindowSystem::RunModal(FrameModel& window) {
    const std::size_t index = shown_.size();
    const auto kind =
        window.Kind() == WindowKind::Sheet ? ShownWindow::Kind::Sheet : ShownWindow::Kind::Dialog;
    shown_.push_back({kind, window.Text(), ""});
    int rounds = 0;
    Answer answer{};
    ++dialogs_;
    while (!window.Ended() && NextAnswer(window, rounds, answer)) {
        Give(window, answer);
    }
    const bool givenUp = !window.Ended();
    if (givenUp) {
        Cancel(window);
    }
    --dialogs_;
    shown_[index].answer = window.Result();
    if (endListener_) {
        endListener_(window, givenUp);
    }
}

void ScriptedWindowSystem::Give(FrameModel& window, const Answer& answer) {
    std::string reason;
    if (answer.kind == Answer::Kind::Show) {
        if (showSink_) {
            showSink_(WindowText(window));
        }
    } else if (!ApplyAnswer(window, answer, reason)) {
        Fail(DescribeAnswer(answer) + ": " + reason);
    }
}

void ScriptedWindowSystem::FetchAnswer() {
    while (feed_ && answers_.empty() && !Failed()) {
        std::optional<Answer> answer = feed_();
        if (!answer) {
            break;
        }
        if (!PutsAwayBox(*answer)) {
            answers_.push_back(std::move(*answer));
        }
    }
}

bool ScriptedWindowSystem::PutsAwayBox(const Answer& answer) {
    const bool puts = boxesUnanswered_ > 0 && answer.kind == Answer::Kind::Box && answer.id == IDOK;
    boxesUnanswered_ -= puts ? 1 : 0;
    return puts;
}

bool ScriptedWindowSystem::NextAnswer(FrameModel& window, int& rounds, Answer& answer) {
    if (answers_.empty() && source_ && !Failed()) {
        for (Answer& further : source_(window)) {
            answers_.push_back(std::move(further));
        }
        if (++rounds > kMaxRounds) {
            Fail("the dialog stays open whatever is answered");
        }
    }
    FetchAnswer();
    if (Failed() || answers_.empty()) {
        return false;
    }
    answer = std::move(answers_.front());
    answers_.pop_front();
    return true;
}

void ScriptedWindowSystem::Cancel(FrameModel& window) {
    window.Command(IDCANCEL);
    window.End(IDCANCEL);  // also one that does not let itself be cancelled
}

int ScriptedWindowSystem::ShowMessageBox(const MessageBoxRequest& request) {
    if (sink_) {
        sink_(request);
    }
    int button = DefaultButton(request.type);
    const bool asks = HasButton(request.type, IDYES) || HasButton(request.type, IDCANCEL);
    if (asks) {
        FetchAnswer();
    }
    if (!Failed() && !answers_.empty() && answers_.front().kind == Answer::Kind::Box) {
        const Answer answer = std::move(answers_.front());
        answers_.pop_front();
        if (HasButton(request.type, answer.id)) {
            button = answer.id;
        } else {
            Fail(DescribeAnswer(answer) + ": the message box has no such button");
        }
    } else if (!asks) {
        ++boxesUnanswered_;
    }
    shown_.push_back({ShownWindow::Kind::Box, request.caption, request.text, request.type, button});
    return button;
}

}  // namespace mfc
