#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/mfc/DialogModel.h"
#include "platform/mfc/SheetModel.h"
#include "platform/mfc/dialog_answer.h"
#include "platform/mfc/window_system.h"

namespace mfc {

/// What was shown to the user. Texts are GBK.
struct ShownWindow {
    enum class Kind { Box, Dialog, Sheet };
    Kind kind;
    std::string caption;
    std::string text;  ///< of a box
    UINT type = 0;     ///< of a box
    int answer = 0;    ///< button pressed, result of the dialog
};

/// A window system without a screen: it answers from a list, in order, through what a user can
/// reach, and remembers what it showed.
///
/// A box takes the next answer if that is one for boxes, else its default button. One that has only
/// a button to be read and put away waits for no answer: "ok" may come for it later. A dialog takes
/// answers until it ends; one that has not ended when they run out is cancelled. An answer that
/// cannot be given (no such control or item, control disabled, no box to answer) fails the run:
/// it is reported, the dialog is cancelled, and so is every dialog from then on.
class ScriptedWindowSystem : public WindowSystem {
public:
    /// Asked whenever a dialog waits and the list is empty; gives the answers to go on with, none
    /// to have the dialog cancelled. It may call Fail. It is not asked for ever: a dialog that is
    /// still open after many rounds fails the run.
    using AnswerSource = std::function<std::vector<Answer>(FrameModel& window)>;
    /// Asked for one answer at a time, when one is wanted and the list is empty; nothing when there
    /// is none for this window.
    using AnswerFeed = std::function<std::optional<Answer>()>;
    /// Hears of every dialog and sheet when it has ended; `givenUp` when the answers ran out.
    using EndListener = std::function<void(FrameModel& window, bool givenUp)>;
    /// Takes every box as it is shown.
    using BoxSink = std::function<void(const MessageBoxRequest& request)>;
    /// Takes what a window shows, when an answer is to look at it: lines of UTF-8 (WindowText).
    using ShowSink = std::function<void(const std::string& text)>;

    void AddAnswer(Answer answer) { answers_.push_back(std::move(answer)); }
    void SetAnswerSource(AnswerSource source) { source_ = std::move(source); }
    void SetAnswerFeed(AnswerFeed feed) { feed_ = std::move(feed); }
    void SetEndListener(EndListener listener) { endListener_ = std::move(listener); }
    void SetBoxSink(BoxSink sink) { sink_ = std::move(sink); }
    void SetShowSink(ShowSink sink) { showSink_ = std::move(sink); }

    /// In order of showing; a window counts when it is shown, its answer is filled in at its end.
    const std::vector<ShownWindow>& Shown() const { return shown_; }
    /// Answers that nothing has asked for yet.
    const std::deque<Answer>& LeftAnswers() const { return answers_; }
    /// Whether a dialog or sheet waits for answers.
    bool IsDialogOpen() const { return dialogs_ > 0; }
    /// True when the answer puts away a box that has not waited for it.
    bool PutsAwayBox(const Answer& answer);
    /// From now on no answer is for a box shown so far.
    void ForgetBoxes() { boxesUnanswered_ = 0; }
    /// Why the run failed (UTF-8); empty while it has not.
    const std::string& Error() const { return error_; }
    bool Failed() const { return !error_.empty(); }
    /// Fails the run; the first reason stays.
    void Fail(const std::string& reason);
    /// Forgets answers, what was shown and the failure.
    void Reset();

    void RunModal(FrameModel& window) override;
    int ShowMessageBox(const MessageBoxRequest& request) override;

private:
    void Give(FrameModel& window, const Answer& answer);
    bool NextAnswer(FrameModel& window, int& rounds, Answer& answer);
    void FetchAnswer();
    void Cancel(FrameModel& window);

    std::deque<Answer> answers_;
    AnswerSource source_;
    AnswerFeed feed_;
    EndListener endListener_;
    BoxSink sink_;
    ShowSink showSink_;
    std::vector<ShownWindow> shown_;
    std::string error_;
    int dialogs_ = 0;          ///< open
    int boxesUnanswered_ = 0;  ///< that waited for no answer
};

}  // namespace mfc
