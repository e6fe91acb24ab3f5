#pragma once

#include <functional>
#include <string>

#include "host/BuiltInCommand.h"
#include "host/CommandInput.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/ge/AcGePoint3d.h"

struct AcEdCommand;

namespace host {

/// Runs the commands that command-line input names, built-in ones and those of modules.
///
/// The words on a command's line are its arguments as far as it asks for any; what is missing comes
/// from the lines after it. A word left over is the next command. Reactors of the editor hear of
/// every command before and after. After each command the input that was sent to the current
/// document meanwhile is run, in the order it was sent.
class CommandInterpreter {
public:
    explicit CommandInterpreter(Host& host) : host_(host) {}

    /// Runs commands until the input gives no more, or the host is to quit. False when a command
    /// was unknown, cancelled or failed; the reasons are on the command line.
    bool Run(CommandInput& input);
    /// Runs one command, which takes its arguments from `input`, and what it sent to the documents.
    bool RunCommand(const std::string& name, CommandInput& input);

    /// Answers a pick of the running command with the next word of its input. False when it names
    /// nothing, which is said, or when it is empty or there is none.
    bool Pick(const char* prompt, AcDbObjectId& id, AcGePoint3d& point);
    /// True while a command waits for a pick, and not for any other word.
    bool IsPicking() const { return picking_; }

    /// Gives what the user has selected beforehand as a pick, empty for nothing that will do. It
    /// answers the first pick of a command whose line does not; what reactors pick is asked for.
    using SelectionSource = std::function<std::string(BuiltInCommand::Picks picks)>;
    void SetSelectionSource(SelectionSource selection) { selection_ = std::move(selection); }

    /// Called after each command of Run, and what it sent, is through.
    void SetAfterCommand(std::function<void()> afterCommand) {
        afterCommand_ = std::move(afterCommand);
    }

private:
    bool RunOne(const std::string& name, CommandInput& input);
    bool RunBuiltIn(const BuiltInCommand& command, CommandInput& input);
    bool RunModuleCommand(const AcEdCommand& command);
    bool Collect(const BuiltInCommand& command, BuiltInCommand::Arguments& arguments);
    bool RunPending();
    std::string Selected(BuiltInCommand::Picks picks) const;
    /// The next word of the running command's input, after the prompt was printed; nothing when no
    /// command runs or its input is used up.
    std::optional<std::string> Ask(const char* prompt, bool picking);

    Host& host_;
    CommandInput* input_ = nullptr;  ///< of the running command
    bool picking_ = false;
    SelectionSource selection_;
    bool takesSelection_ = false;  ///< the running command has not picked yet
    std::function<void()> afterCommand_;
};

}  // namespace host
