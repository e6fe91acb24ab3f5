#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace console {

/// What is wrong in a line of a file. Lines count from 1.
struct LineError {
    std::size_t line;
    std::string reason;

    friend bool operator==(const LineError&, const LineError&) = default;
};

struct CsvRecord {
    std::size_t line;  ///< where the record starts: a quoted field may go over several lines
    std::vector<std::string> fields;
};

/// Takes CSV text (UTF-8) apart: fields between commas, lines ended by LF or CRLF, fields in double
/// quotes with "" for a quote. Empty lines are left out, the last line needs no end. A quote within
/// a field without quotes, anything after the closing quote and a missing closing quote are errors;
/// the records of such lines are left out.
std::vector<CsvRecord> ReadCsv(std::string_view text, std::vector<LineError>& errors);

}  // namespace console
