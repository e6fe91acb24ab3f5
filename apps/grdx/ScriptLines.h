#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/mfc/dialog_answer.h"

namespace console {

/// A script's lines, told apart into command input and the answers under it.
class ScriptLines {
public:
    using AnswerSink = std::function<void(mfc::Answer)>;
    /// Gets what is wrong with a line, with its number (UTF-8).
    using FaultSink = std::function<void(const std::string&)>;

    ScriptLines(const std::string& utf8, AnswerSink answers, FaultSink faults);

    /// The next line of input (GBK); nothing at the end. The answers that stand under it, up to the
    /// next line of input, are handed out at the same time; empty lines and comments do not count.
    std::optional<std::string> Next();

private:
    void HandOutAnswers();
    void Fault(const std::string& reason);
    bool AtEnd() const { return position_ >= lines_.size(); }

    std::vector<std::string> lines_;
    AnswerSink answers_;
    FaultSink faults_;
    std::size_t position_ = 0;
};

}  // namespace console
