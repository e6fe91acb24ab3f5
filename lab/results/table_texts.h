#pragma once

#include <string>

#include "lab/results/ResultTable.h"

namespace lab {

/// The table as CSV: commas, a header, quotes where a value needs them, lines ending with LF.
std::string TableAsCsv(const ResultTable& table);
/// As a JSON list of objects with the columns' names, one a line.
std::string TableAsJson(const ResultTable& table);
/// As a workbook of one sheet (xlsx), numbers as numbers, the header frozen. Failure when the sheet
/// cannot hold the table, or no temporary file can be written.
std::string TableAsWorkbook(const ResultTable& table);

/// The header of a column, with its remark in brackets.
std::string HeaderOf(const ResultTable::Column& column);
/// The text of a cell: yes or no, codes parted by blanks.
std::string TextOf(const ResultTable::Cell& cell);

}  // namespace lab
