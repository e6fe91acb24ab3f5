#pragma once

#include <string>
#include <utility>
#include <vector>

/// Makes a package of parts, by name and content, as .xlsx files are.
std::string MakePackage(const std::vector<std::pair<std::string, std::string>>& parts);

/// A workbook with the sheet 颗分 of this XML (what stands in <worksheet>), a hidden sheet before
/// it and the sheet 第二 behind it. Shared texts 0 to 3 are 钻孔编号, 试样编号, ZK1 and "1-1";
/// styles 1 to 5 show two decimals, percent, a date, ZK and the number, and four digits.
std::string MakeWorkbook(const std::string& sheet, const std::string& second = "<sheetData/>");
/// <row>s of cells between blanks: numbers, else texts; - is no cell.
std::string Rows(const std::vector<std::string>& rows);
