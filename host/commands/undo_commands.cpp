#include <charconv>

#include "host/BuiltInCommand.h"
#include "host/Host.h"
#include "host/dialogue.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"

namespace host {

namespace {
using Arguments = BuiltInCommand::Arguments;
using Outcome = DrawingHistory::Outcome;

DrawingHistory& History(Host& host) {
    return host.Histories().Of(*acDocManager->curDocument());
}

/// Says what was moved, or why nothing was. True for a step moved.
bool Tell(Outcome outcome, Phrase moved, Phrase nothing, const std::string& command) {
    switch (outcome) {
        case Outcome::kDone:
            acutPrintf("\n%s", moved.Text({StepTitle(command)}).c_str());
            return true;
        case Outcome::kInUse:
            return Complain("An object that \"%1\" has changed is in use.", {StepTitle(command)});
        default:
            return Complain(nothing);
    }
}

bool UndoOne(Host& host) {
    DrawingHistory& history = History(host);
    const std::string command = history.NextUndo();
    return Tell(history.Undo(), "Undone: %1.", "There is nothing to undo.", command);
}

bool U(Host& host, const Arguments& /*arguments*/) {
    return UndoOne(host);
}

/// Goes back as many steps as there are, and says when they were fewer.
bool Undo(Host& host, const Arguments& arguments) {
    const std::string& word = arguments.front();
    int steps = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, fault] = std::from_chars(word.data(), end, steps);
    if (fault != std::errc() || stop != end || steps < 1) {
        return Complain("The number of steps is a whole number from 1 up, not \"%1\".", {word});
    }
    int undone = 0;
    while (undone < steps && UndoOne(host)) {
        ++undone;
    }
    return undone > 0;
}

bool Redo(Host& host, const Arguments& /*arguments*/) {
    DrawingHistory& history = History(host);
    const std::string command = history.NextRedo();
    return Tell(history.Redo(), "Redone: %1.", "There is nothing to redo.", command);
}
}  // namespace

const std::vector<BuiltInCommand>& UndoCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"U", false, {}, U},
        {"UNDO", false, {"Number of steps: "}, Undo},
        {"REDO", false, {}, Redo},
    };
    return commands;
}

}  // namespace host
