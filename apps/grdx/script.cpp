#include "apps/grdx/script.h"

#include <memory>
#include <utility>

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/Failure.h"
#include "apps/grdx/InputStream.h"
#include "apps/grdx/ScriptLines.h"
#include "lab/tables/text_coding.h"
#include "platform/ed/AcEditor.h"
#include "platform/oledb/lock_wait.h"

namespace console {

namespace {
/// One script from its first line to its last.
class Script : private AcEditorReactor {
public:
    Script(const std::string& name, MessageStream& messages)
        : messages_(messages),
          session_(messages),
          waits_(InputStream::IsName(name)),
          lines_(waits_ ? LinesOf(name) : ScriptLines::OfText(ReadInputText(name)),
                 [this](const std::string& fault) { Complain(fault); }) {
        // Before the plug-in, whose own reactor may ask something when a command starts.
        acedEditor->addReactor(this);
    }
    ~Script() override { acedEditor->removeReactor(this); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    bool Run(const std::string& suiteFolder) {
        session_.Start(suiteFolder);
        session_.SetSaveListener(
            [this](const std::string& path) { messages_.PrintResult(path + "\n"); });
        session_.Windows().SetAnswerFeed([this] { return lines_.NextAnswer(); });
        host::CommandInput input([this] { return NextInput(); });
        host::CommandInterpreter& interpreter = session_.Program().Interpreter();
        interpreter.SetAfterCommand([&] { AfterCommand(input); });
        good_ = interpreter.Run(input) && good_;
        interpreter.SetAfterCommand(nullptr);
        if (!waits_) {  // whoever writes line by line has nothing more to say to a program that
                        // ends
            PassAnswers();
        }
        return good_;
    }

private:
    /// The lines of a stream as they arrive. What goes wrong is told as the script's end: a command
    /// may be running.
    ScriptLines::LineSource LinesOf(const std::string& name) {
        auto stream = std::make_shared<InputStream>(name);
        return [this, stream, name]() -> std::optional<std::string> {
            try {
                const std::optional<std::string> line = stream->NextLine();
                std::string utf8;
                std::string error;
                if (!line || lab::DecodeLine(*line, utf8, error)) {
                    return line ? std::optional(utf8) : std::nullopt;
                }
                Complain(name + ": " + error);
            } catch (const Failure& failure) {
                Complain(failure.what());
            }
            return std::nullopt;
        };
    }

    std::optional<std::string> NextInput() {
        std::optional<std::string> line;
        do {
            PassAnswers();
            line = lines_.NextInput();
        } while (!line && !lines_.AtEnd());
        if (running_ == 0) {
            session_.Windows().ForgetBoxes();
        }
        begun_ = true;
        return line;
    }

    /// Takes the answers that nobody has fetched: while a command runs they are for what it shows
    /// next, after it nothing has asked for them.
    void PassAnswers() {
        while (std::optional<mfc::Answer> answer = lines_.NextAnswer()) {
            if (running_ > 0) {
                session_.Windows().AddAnswer(std::move(*answer));
            } else if (!begun_) {
                lines_.Fault("an answer without a command above it");
            } else if (!session_.Windows().PutsAwayBox(*answer)) {
                Complain("not asked for: " + mfc::DescribeAnswer(*answer));
            }
        }
    }

    void AfterCommand(host::CommandInput& input) {
        messages_.EndLine();
        // The answers under a line belong to the last of its commands.
        if (input.AtLineEnd()) {
            ReportAnswers();
        }
        good_ = session_.JudgeCommand() && good_;
        oledb::ForgetGivenUpWait();
    }

    /// Says which answers were wrong or too many, and forgets them.
    void ReportAnswers() {
        mfc::ScriptedWindowSystem& windows = session_.Windows();
        if (windows.Failed()) {
            Complain(windows.Error());
        }
        for (const mfc::Answer& answer : windows.LeftAnswers()) {
            Complain("not asked for: " + mfc::DescribeAnswer(answer));
        }
        windows.Reset();
    }

    void Complain(const std::string& finding) {
        messages_.Report(finding);
        good_ = false;
    }

    void commandWillStart(const char* /*commandName*/) override { ++running_; }
    void commandEnded(const char* /*commandName*/) override { --running_; }

    MessageStream& messages_;
    ConsoleSession session_;
    bool waits_;  ///< for whoever writes the lines
    ScriptLines lines_;
    bool good_ = true;
    bool begun_ = false;  ///< a line of input was taken
    int running_ = 0;     ///< commands begun and not ended
};
}  // namespace

bool RunScript(const std::string& suiteFolder, const std::string& name, MessageStream& messages) {
    return Script(name, messages).Run(suiteFolder);
}

}  // namespace console
