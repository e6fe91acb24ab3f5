#include "host/CommandInterpreter.h"

#include <algorithm>
#include <utility>

#include "host/Host.h"
#include "host/dialogue.h"
#include "host/document_mode.h"
#include "host/entity_pick.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/AcEdCommandStack.h"
#include "platform/ed/AcEditor.h"
#include "platform/ed/command_line.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"

namespace host {

namespace {
/// Command names are ASCII, and so are their capitals.
std::string UpperCase(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return name;
}

/// Tells the editor's reactors of a command from its start to its end.
class ToldCommand {
public:
    explicit ToldCommand(const std::string& name) : name_(UpperCase(name)) {
        acedEditor->tellCommandWillStart(name_.c_str());
    }
    ~ToldCommand() { acedEditor->tellCommandEnded(name_.c_str()); }
    ToldCommand(const ToldCommand&) = delete;
    ToldCommand& operator=(const ToldCommand&) = delete;

private:
    std::string name_;
};

void RunInContext(bool session, const std::function<void()>& work) {
    if (!session) {
        work();
        return;
    }
    acDocManager->executeInApplicationContext(
        [](void* data) { (*static_cast<const std::function<void()>*>(data))(); },
        const_cast<std::function<void()>*>(&work));
}

/// The next command's name. Lines that cannot be read are complained of, which clears `good`.
std::optional<std::string> NextName(CommandInput& input, bool& good) {
    while (true) {
        std::optional<std::string> name = input.Next();
        const std::string badLine = input.TakeBadLine();
        if (name || badLine.empty()) {
            return name;
        }
        good = Complain("A closing quote is missing: %1", {badLine});
    }
}

bool LacksDocument() {
    return acDocManager->curDocument() == nullptr &&
           !Complain("No drawing is open. NEW makes one, OPEN opens one.");
}
}  // namespace

bool CommandInterpreter::Run(CommandInput& input) {
    bool good = true;
    while (!host_.IsQuitting()) {
        const std::optional<std::string> name = NextName(input, good);
        if (!name) {
            break;
        }
        good = RunCommand(*name, input) && good;
        if (afterCommand_) {
            afterCommand_();
        }
    }
    return good;
}

bool CommandInterpreter::RunCommand(const std::string& name, CommandInput& input) {
    const bool good = RunOne(name, input);
    return RunPending() && good;
}

bool CommandInterpreter::RunPending() {
    bool good = true;
    for (std::string text = acDocManager->takePendingInput(); !text.empty();
         text = acDocManager->takePendingInput()) {
        CommandInput pending = CommandInput::OfText(std::move(text));
        while (const std::optional<std::string> name = NextName(pending, good)) {
            good = RunOne(*name, pending) && good;
        }
    }
    return good;
}

bool CommandInterpreter::RunOne(const std::string& name, CommandInput& input) {
    if (name == CommandInput::kCancel) {
        return true;
    }
    CommandInput* const outer = std::exchange(input_, &input);
    bool good = false;
    if (const BuiltInCommand* builtIn = FindBuiltInCommand(name)) {
        good = RunBuiltIn(*builtIn, input);
    } else if (const AcEdCommand* command = acedRegCmds->lookupCmd(name.c_str())) {
        good = RunModuleCommand(*command);
    } else {
        Complain("Unknown command \"%1\".", {name});
    }
    input_ = outer;
    if (IsSingleDocumentMode() && acDocManager->curDocument() == nullptr && !host_.IsQuitting()) {
        host_.StartDocument();
    }
    return good;
}

bool CommandInterpreter::RunBuiltIn(const BuiltInCommand& command, CommandInput& input) {
    if (!command.session && LacksDocument()) {
        return false;
    }
    // What stands on the command's line is the command's, whatever the reactors ask for.
    BuiltInCommand::Arguments arguments;
    while (arguments.size() < command.prompts.size()) {
        std::optional<std::string> word = input.NextOnLine();
        if (!word) {
            break;
        }
        arguments.push_back(std::move(*word));
    }
    if (std::string pick = arguments.empty() ? Selected(command.picks) : ""; !pick.empty()) {
        arguments.push_back(std::move(pick));
    }
    const ToldCommand told(command.name);
    bool good = false;
    if (Collect(command, arguments)) {
        const UndoHistories::Recording recording(host_.Histories(), command.name);
        RunInContext(command.session, [&] { good = command.run(host_, arguments); });
    }
    return good;
}

/// Asks for the arguments that are still missing.
bool CommandInterpreter::Collect(const BuiltInCommand& command,
                                 BuiltInCommand::Arguments& arguments) {
    while (arguments.size() < command.prompts.size()) {
        const std::string prompt = command.prompts[arguments.size()].Text();
        const bool picking = command.picks != BuiltInCommand::Picks::kNothing && arguments.empty();
        std::optional<std::string> word = Ask(("\n" + prompt).c_str(), picking);
        if (!word) {
            return Complain("%1: cancelled, nothing was given for \"%2\".", {command.name, prompt});
        }
        arguments.push_back(std::move(*word));
    }
    if (std::find(arguments.begin(), arguments.end(), CommandInput::kCancel) != arguments.end()) {
        return Complain("%1: cancelled.", {command.name});
    }
    return true;
}

bool CommandInterpreter::RunModuleCommand(const AcEdCommand& command) {
    // Modules' commands make drawings of their own and only ask for one to start from.
    if (acDocManager->curDocument() == nullptr) {
        host_.StartDocument();
    }
    // Plug-ins work with the suite's files, and these may have been changed meanwhile.
    std::string fault;
    if (!suite::CheckOpenFolder(fault)) {
        return ComplainAsTold(win32::GbkFromUtf8(fault));
    }
    const bool session = (command.flags & ACRX_CMD_SESSION) != 0;
    // The stack's own entry may move when the command adds or removes commands.
    const AcRxFunctionPtr function = command.function;
    const ToldCommand told(command.globalName);
    const UndoHistories::Recording recording(host_.Histories(), UpperCase(command.globalName));
    takesSelection_ = true;
    RunInContext(session, [function] { function(); });
    takesSelection_ = false;
    return true;
}

std::string CommandInterpreter::Selected(BuiltInCommand::Picks picks) const {
    return selection_ && picks != BuiltInCommand::Picks::kNothing ? selection_(picks)
                                                                  : std::string();
}

std::optional<std::string> CommandInterpreter::Ask(const char* prompt, bool picking) {
    acutPrintf("%s", prompt);
    if (input_ == nullptr) {
        return std::nullopt;
    }
    const bool outer = std::exchange(picking_, picking);
    std::optional<std::string> word = input_->Next();
    picking_ = outer;
    return word == CommandInput::kCancel ? std::nullopt : word;
}

bool CommandInterpreter::Pick(const char* prompt, AcDbObjectId& id, AcGePoint3d& point) {
    const bool mayBeSelected =
        std::exchange(takesSelection_, false) && input_ != nullptr && input_->AtLineEnd();
    std::optional<std::string> word =
        mayBeSelected ? Selected(BuiltInCommand::Picks::kOne) : std::string();
    if (word->empty()) {
        word = Ask(prompt, true);
    }
    AcApDocument* const document = acDocManager->curDocument();
    if (!word || word->empty() || document == nullptr) {
        return false;
    }
    if (!PickEntity(*document, *word, id, point)) {
        acutPrintf("\n");  // the command's own words follow
        return false;
    }
    return true;
}

}  // namespace host
