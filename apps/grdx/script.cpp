#include "apps/grdx/script.h"

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/ScriptLines.h"
#include "platform/oledb/lock_wait.h"

namespace console {

namespace {
/// Says which answers of the command that has just run were wrong or too many, and forgets them.
bool ReportAnswers(ConsoleSession& session) {
    mfc::ScriptedWindowSystem& windows = session.Windows();
    bool good = true;
    if (windows.Failed()) {
        session.Messages().Report(windows.Error());
        good = false;
    }
    for (const mfc::Answer& answer : windows.LeftAnswers()) {
        session.Messages().Report("not asked for: " + mfc::DescribeAnswer(answer));
        good = false;
    }
    windows.Reset();
    return good;
}
}  // namespace

bool RunScript(const std::string& suiteFolder, const std::string& utf8, MessageStream& messages) {
    ConsoleSession session(messages);
    session.Start(suiteFolder);
    session.SetSaveListener(
        [&messages](const std::string& path) { messages.PrintResult(path + "\n"); });

    bool good = true;
    ScriptLines lines(
        utf8, [&](mfc::Answer answer) { session.Windows().AddAnswer(std::move(answer)); },
        [&](const std::string& fault) {
            messages.Report(fault);
            good = false;
        });
    host::CommandInput input([&lines] { return lines.Next(); });
    host::CommandInterpreter& interpreter = session.Program().Interpreter();
    interpreter.SetAfterCommand([&] {
        messages.EndLine();
        // The answers under a line belong to the last of its commands.
        if (input.AtLineEnd()) {
            good = ReportAnswers(session) && good;
        }
        good = !session.ReportFaults() && good;
        good = !session.TakeStoreFailure() && good;
        oledb::ForgetGivenUpWait();
    });
    good = interpreter.Run(input) && good;
    interpreter.SetAfterCommand(nullptr);
    return good;
}

}  // namespace console
