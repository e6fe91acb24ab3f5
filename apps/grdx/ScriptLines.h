#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/mfc/dialog_answer.h"

namespace console {

/// A script's lines, told apart into command input and the answers under it. A line is taken from
/// the script when it is wanted and not before, so that a person or a program may write them one
/// by one.
class ScriptLines {
public:
    /// Gives the next line (UTF-8) without its end; nothing at the script's end.
    using LineSource = std::function<std::optional<std::string>()>;
    /// Gets what is wrong with a line, with its number (UTF-8).
    using FaultSink = std::function<void(const std::string&)>;

    ScriptLines(LineSource lines, FaultSink faults);
    /// The lines of a text.
    static LineSource OfText(std::string utf8);

    /// The next line if it is an answer; nothing when it is input, which then stays, or at the end.
    /// Empty lines, comments and answers that cannot be read, which are faults, do not count.
    std::optional<mfc::Answer> NextAnswer();
    /// The next line if it is input (GBK); nothing when it is an answer, which then stays, or at
    /// the end.
    std::optional<std::string> NextInput();
    /// Waits for a line that says something; true when there is none any more.
    bool AtEnd() { return !Look(); }

    /// Tells what is wrong with the line taken last.
    void Fault(const std::string& reason);

private:
    bool Look();

    LineSource lines_;
    FaultSink faults_;
    std::optional<std::string> line_;  ///< the next that says something, once it was looked at
    std::size_t number_ = 0;
    bool ended_ = false;
};

}  // namespace console
