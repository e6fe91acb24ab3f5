#include "apps/grdx/ScriptLines.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/win32/code_page.h"

namespace console {

namespace {
bool IsAnswer(std::string_view line) {
    return win32::TrimBlanks(line).starts_with('@');
}
bool SaysNothing(std::string_view line) {
    return win32::TrimBlanks(line).empty() || win32::TrimBlanks(line).starts_with(';');
}
}  // namespace

ScriptLines::ScriptLines(LineSource lines, FaultSink faults)
    : lines_(std::move(lines)), faults_(std::move(faults)) {}

ScriptLines::LineSource ScriptLines::OfText(std::string utf8) {
    auto rest = std::make_shared<std::pair<std::string, std::size_t>>(std::move(utf8), 0);
    return [rest]() -> std::optional<std::string> {
        auto& [text, start] = *rest;
        if (start >= text.size()) {
            return std::nullopt;
        }
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::size_t from = std::exchange(start, end + 1);
        return text.substr(from, end - from);
    };
}

/// False at the end.
bool ScriptLines::Look() {
    while (!line_ && !ended_) {
        line_ = lines_();
        ended_ = !line_;
        number_ += ended_ ? 0 : 1;
        if (line_ && SaysNothing(*line_)) {
            line_.reset();
        }
    }
    return !ended_;
}

std::optional<mfc::Answer> ScriptLines::NextAnswer() {
    while (Look() && IsAnswer(*line_)) {
        mfc::Answer answer{};
        std::string error;
        const bool good = mfc::ParseAnswer(win32::TrimBlanks(*line_), answer, error);
        line_.reset();
        if (good) {
            return answer;
        }
        Fault(error);
    }
    return std::nullopt;
}

std::optional<std::string> ScriptLines::NextInput() {
    while (Look() && !IsAnswer(*line_)) {
        std::string gbk;
        const bool good = win32::TryGbkFromUtf8(*line_, gbk);
        line_.reset();
        if (good) {
            return gbk;
        }
        Fault("a character that GBK does not have");
    }
    return std::nullopt;
}

void ScriptLines::Fault(const std::string& reason) {
    faults_("line " + std::to_string(number_) + ": " + reason);
}

}  // namespace console
