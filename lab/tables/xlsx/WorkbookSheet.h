#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "lab/tables/TableSource.h"
#include "lab/tables/xlsx/Workbook.h"
#include "lab/tables/xlsx/XmlElements.h"

namespace lab {

/// One sheet of a workbook (.xlsx). Numbers are shown as their format shows them and counted with
/// all their digits, a percentage as so many percent; dates, errors and truth values are texts.
/// Merged cells all have the text of their first one. A formula has the value that was stored with
/// it; one without is a fault of its cell.
///
/// Throws Failure when the file cannot be read; rows are unpacked one by one.
class WorkbookSheet : public TableSource {
public:
    /// An empty sheet name is the first one that is shown. The bytes must outlive the object.
    WorkbookSheet(std::string name, std::string_view bytes, const std::string& sheet);
    ~WorkbookSheet() override;

    bool Next(TableRow& row) override;
    std::string Place(std::size_t row, std::size_t column) const override;
    bool RowsAreFull() const override { return false; }
    double Progress() const override { return rows_.Progress(); }

private:
    struct Range {
        std::size_t firstRow, lastRow, firstColumn, lastColumn;
        std::string shown;  ///< of its first cell, once that was read
        std::string value;
    };
    void ReadMerges();
    void ReadCells(const pugi::xml_node& node, TableRow& row);
    void ReadCell(const pugi::xml_node& node, Cell& cell);
    void ReadNumber(const pugi::xml_node& node, const std::string& text, Cell& cell);
    void Merge(TableRow& row);
    std::string_view Keep(std::string text);
    [[noreturn]] void Fail(const std::string& reason) const;

    std::string name_;
    Workbook workbook_;
    XmlElements rows_;
    std::vector<Range> merges_;       ///< by their first row
    std::size_t nextMerge_ = 0;       ///< of those that have not begun
    std::vector<std::size_t> begun_;  ///< and have not ended
    std::size_t row_ = 0;
    std::deque<std::string> texts_;  ///< of the row read last
    std::unique_ptr<pugi::xml_document> document_;
};

}  // namespace lab
