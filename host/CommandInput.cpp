#include "host/CommandInput.h"

#include <memory>
#include <utility>

namespace host {

namespace {
// None of the characters looked for can be the trail byte of a double-byte character.
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}
bool EndsWord(char c) {
    return IsBlank(c) || c == '"' || c == *CommandInput::kCancel;
}

bool HasOpenQuote(const std::string& line) {
    bool open = false;
    for (const char c : line) {
        open = (c == '"') != open;
    }
    return open;
}
}  // namespace

CommandInput CommandInput::OfText(std::string text) {
    auto rest = std::make_shared<std::string>(std::move(text));
    return CommandInput([rest]() -> std::optional<std::string> {
        if (rest->empty()) {
            return std::nullopt;
        }
        const std::size_t end = rest->find('\n');
        std::string line = rest->substr(0, end);
        rest->erase(0, end == std::string::npos ? rest->size() : end + 1);
        return line;
    });
}

std::optional<std::string> CommandInput::Next() {
    while (AtLineEnd()) {
        if (!FetchLine()) {
            return std::nullopt;
        }
    }
    return NextOnLine();
}

std::optional<std::string> CommandInput::NextOnLine() {
    if (AtLineEnd()) {
        return std::nullopt;
    }
    if (line_[position_] == *kCancel) {
        ++position_;
        return kCancel;
    }
    std::string word;
    const bool quoted = line_[position_] == '"';
    if (!quoted) {
        while (position_ < line_.size() && !EndsWord(line_[position_])) {
            word += line_[position_++];
        }
        return word;
    }
    for (++position_; line_[position_] != '"' || line_[position_ + 1] == '"'; ++position_) {
        position_ += line_[position_] == '"' ? 1 : 0;
        word += line_[position_];
    }
    ++position_;
    return word;
}

bool CommandInput::AtLineEnd() {
    SkipBlanks();
    return position_ >= line_.size();
}

std::string CommandInput::TakeBadLine() {
    return std::exchange(badLine_, {});
}

/// Takes the next line that holds words.
bool CommandInput::FetchLine() {
    while (true) {
        std::optional<std::string> line = lines_();
        if (!line) {
            return false;
        }
        line_ = std::move(*line);
        position_ = 0;
        SkipBlanks();
        const bool comment = position_ < line_.size() && line_[position_] == ';';
        if (comment) {
            position_ = line_.size();
        } else if (HasOpenQuote(line_)) {
            badLine_ = std::exchange(line_, {});
            return false;
        } else {
            return true;
        }
    }
}

void CommandInput::SkipBlanks() {
    while (position_ < line_.size() && IsBlank(line_[position_])) {
        ++position_;
    }
}

}  // namespace host
