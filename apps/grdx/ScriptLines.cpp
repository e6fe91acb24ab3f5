#include "apps/grdx/ScriptLines.h"

#include <utility>

#include "platform/win32/code_page.h"

namespace console {

namespace {
constexpr const char* kBlanks = " \t\r";

std::string_view Trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

bool IsAnswer(std::string_view line) {
    return Trimmed(line).starts_with('@');
}
bool SaysNothing(std::string_view line) {
    return Trimmed(line).empty() || Trimmed(line).starts_with(';');
}
}  // namespace

ScriptLines::ScriptLines(const std::string& utf8, AnswerSink answers, FaultSink faults)
    : answers_(std::move(answers)), faults_(std::move(faults)) {
    for (std::size_t start = 0; start < utf8.size();) {
        const std::size_t end = std::min(utf8.find('\n', start), utf8.size());
        lines_.push_back(utf8.substr(start, end - start));
        start = end + 1;
    }
}

std::optional<std::string> ScriptLines::Next() {
    while (!AtEnd()) {
        const std::string& line = lines_[position_++];
        std::string gbk;
        if (SaysNothing(line)) {
            continue;
        }
        if (IsAnswer(line)) {
            Fault("an answer without a command above it");
        } else if (!win32::TryGbkFromUtf8(line, gbk)) {
            Fault("a character that GBK does not have");
        } else {
            HandOutAnswers();
            return gbk;
        }
    }
    return std::nullopt;
}

void ScriptLines::HandOutAnswers() {
    while (!AtEnd() && (IsAnswer(lines_[position_]) || SaysNothing(lines_[position_]))) {
        const std::string_view line = Trimmed(lines_[position_++]);
        mfc::Answer answer{};
        std::string error;
        if (SaysNothing(line)) {
            continue;
        }
        if (mfc::ParseAnswer(line, answer, error)) {
            answers_(std::move(answer));
        } else {
            Fault(error);
        }
    }
}

/// Of the line taken last.
void ScriptLines::Fault(const std::string& reason) {
    faults_("line " + std::to_string(position_) + ": " + reason);
}

}  // namespace console
