#include "lab/tables/DelimitedText.h"

#include <algorithm>
#include <utility>

namespace lab {

namespace {
/// Delimiters within quotes are none.
char FindDelimiter(std::string_view text) {
    constexpr std::string_view kDelimiters = ",;\t";
    std::size_t counts[kDelimiters.size()] = {};
    bool quoted = false;
    for (const char c : text) {
        quoted = quoted != (c == '"');
        const std::size_t which = kDelimiters.find(c);
        if (!quoted && which != std::string_view::npos) {
            ++counts[which];
        } else if (!quoted && c == '\n' &&
                   std::any_of(std::begin(counts), std::end(counts),
                               [](auto n) { return n > 0; })) {
            break;
        }
    }
    return kDelimiters[static_cast<std::size_t>(
        std::max_element(std::begin(counts), std::end(counts)) - counts)];
}
}  // namespace

DelimitedText::DelimitedText(std::string name, std::string text, Findings& findings)
    : name_(std::move(name)),
      text_(std::move(text)),
      findings_(findings),
      delimiter_(FindDelimiter(text_)) {}

bool DelimitedText::Next(TableRow& row) {
    while (!AtEnd()) {
        unescaped_.clear();
        row.cells.clear();
        row.number = line_;
        const char* const fault = ReadLine(row.cells);
        if (fault != nullptr) {
            findings_.Refuse(Place(row.number, 0), fault);
        } else if (std::any_of(row.cells.begin(), row.cells.end(),
                               [](const Cell& cell) { return !cell.shown.empty(); })) {
            return true;
        }
    }
    return false;
}

std::string DelimitedText::Place(std::size_t row, std::size_t /*column*/) const {
    return name_ + ":" + std::to_string(row);
}

double DelimitedText::Progress() const {
    return text_.empty() ? 1.0 : static_cast<double>(position_) / static_cast<double>(text_.size());
}

bool DelimitedText::AtLineEnd() const {
    return AtEnd() || text_[position_] == '\n' || text_.compare(position_, 2, "\r\n") == 0;
}

/// Null, or what is wrong. Ends after the line.
const char* DelimitedText::ReadLine(std::vector<Cell>& cells) {
    while (true) {
        std::string_view value;
        const char* fault = ReadValue(value);
        if (fault == nullptr && value.size() > kLongestCell) {
            fault = "a value of more than 32767 bytes";
        } else if (fault == nullptr && cells.size() == kMostColumns) {
            fault = "more than 16384 values";
        }
        if (fault != nullptr) {
            SkipLine();
            return fault;
        }
        cells.push_back({value, value});
        if (AtLineEnd()) {
            SkipLine();
            return nullptr;
        }
        ++position_;  // the delimiter
    }
}

/// Ends at a delimiter or a line's end.
const char* DelimitedText::ReadValue(std::string_view& value) {
    if (!AtEnd() && text_[position_] == '"') {
        return ReadQuoted(value);
    }
    const std::size_t start = position_;
    while (!AtLineEnd() && text_[position_] != delimiter_) {
        if (text_[position_++] == '"') {
            return "a quote within a field that does not stand in quotes";
        }
    }
    value = std::string_view(text_).substr(start, position_ - start);
    return nullptr;
}

const char* DelimitedText::ReadQuoted(std::string_view& value) {
    const std::size_t start = ++position_;
    bool escaped = false;
    for (; !AtEnd(); ++position_) {
        if (text_[position_] == '\n') {
            ++line_;
        } else if (text_.compare(position_, 2, "\"\"") == 0) {
            escaped = true;
            ++position_;
        } else if (text_[position_] == '"') {
            break;
        }
    }
    if (AtEnd()) {
        return "a field's closing quote is missing";
    }
    value = std::string_view(text_).substr(start, position_ - start);
    if (escaped) {
        std::string& plain = unescaped_.emplace_back();
        for (std::size_t i = 0; i < value.size(); ++i) {
            plain += value[i];
            i += value[i] == '"' ? 1 : 0;
        }
        value = plain;
    }
    ++position_;
    return AtLineEnd() || text_[position_] == delimiter_
               ? nullptr
               : "text after the closing quote of a field";
}

void DelimitedText::SkipLine() {
    const std::size_t end = text_.find('\n', position_);
    position_ = end == std::string::npos ? text_.size() : end + 1;
    ++line_;
}

}  // namespace lab
