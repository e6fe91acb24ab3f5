#pragma once

#include <deque>

#include "lab/tables/Findings.h"
#include "lab/tables/TableSource.h"

namespace lab {

/// Takes a text (UTF-8) with a value between each two delimiters apart: lines end with LF or CRLF,
/// values may stand in double quotes with "" for a quote. The delimiter is the one of comma,
/// semicolon and tab that the first line with any has most of. A quote within a value without
/// quotes, anything after the closing quote and a missing closing quote are refused, and so is a
/// value of more than kLongestCell bytes; such lines are left out.
class DelimitedText : public TableSource {
public:
    /// `name` is told in messages.
    DelimitedText(std::string name, std::string text, Findings& findings);

    bool Next(TableRow& row) override;
    std::string Place(std::size_t row, std::size_t column) const override;
    bool RowsAreFull() const override { return true; }
    double Progress() const override;

private:
    bool AtEnd() const { return position_ >= text_.size(); }
    bool AtLineEnd() const;
    const char* ReadLine(std::vector<Cell>& cells);
    const char* ReadValue(std::string_view& value);
    const char* ReadQuoted(std::string_view& value);
    void SkipLine();

    std::string name_;
    std::string text_;
    Findings& findings_;
    char delimiter_;
    std::deque<std::string> unescaped_;  ///< of the row read last
    std::size_t position_ = 0;
    std::size_t line_ = 1;
};

}  // namespace lab
