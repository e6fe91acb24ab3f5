#include "lab/tables/xlsx/WorkbookSheet.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include <pugixml.hpp>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "lab/tables/Findings.h"

namespace lab {

namespace {
constexpr std::size_t kMostRows = 1048576;
constexpr std::size_t kMostMerges = 100000;
/// Merged cells that reach further to the right are a title over the whole sheet.
constexpr std::size_t kWidestMerge = 256;
constexpr unsigned kParse = pugi::parse_default | pugi::parse_ws_pcdata;

struct CellReference {
    std::size_t row = 0;     ///< from 1
    std::size_t column = 0;  ///< from 0
};

/// Reads "B12"; false for anything else.
bool ReadReference(std::string_view text, CellReference& reference) {
    std::size_t column = 0;
    std::size_t letters = 0;
    while (letters < text.size() && text[letters] >= 'A' && text[letters] <= 'Z' && letters < 4) {
        column = column * 26 + static_cast<std::size_t>(text[letters++] - 'A' + 1);
    }
    const std::optional<int> row = ParseInteger(text.substr(letters));
    if (letters == 0 || column > kMostColumns || !row || *row < 1 ||
        static_cast<std::size_t>(*row) > kMostRows) {
        return false;
    }
    reference = {static_cast<std::size_t>(*row), column - 1};
    return true;
}

std::string ColumnLetters(std::size_t column) {
    std::string letters;
    for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters;
}

bool HasText(const Cell& cell) {
    return cell.fault != nullptr ||
           cell.shown.find_first_not_of(" \t\r\n") != std::string_view::npos;
}
}  // namespace

WorkbookSheet::WorkbookSheet(std::string name, std::string_view bytes, const std::string& sheet)
    : name_(std::move(name)),
      workbook_(name_, bytes, sheet),
      rows_(name_, workbook_.Parts().Open(workbook_.SheetPart()), {"row"}),
      document_(std::make_unique<pugi::xml_document>()) {
    ReadMerges();
}

WorkbookSheet::~WorkbookSheet() = default;

std::string WorkbookSheet::Place(std::size_t row, std::size_t column) const {
    return name_ + ", sheet " + workbook_.SheetName() + ", " + ColumnLetters(column) +
           std::to_string(row);
}

void WorkbookSheet::Fail(const std::string& reason) const {
    throw Failure(name_ + ", sheet " + workbook_.SheetName() + ": " + reason);
}

/// They stand behind the rows.
void WorkbookSheet::ReadMerges() {
    XmlElements elements(name_, workbook_.Parts().Open(workbook_.SheetPart()), {"mergeCell"});
    std::string_view element;
    while (elements.Next(element)) {
        document_->load_buffer(element.data(), element.size());
        const std::string_view reference = AttributeOf(document_->first_child(), "ref");
        const std::size_t colon = reference.find(':');
        CellReference first;
        CellReference last;
        if (colon == std::string_view::npos || !ReadReference(reference.substr(0, colon), first) ||
            !ReadReference(reference.substr(colon + 1), last) || merges_.size() == kMostMerges) {
            Fail("merged cells " + Quoted(reference) + " cannot be read");
        }
        merges_.push_back({first.row,
                           last.row,
                           first.column,
                           std::min(last.column, first.column + kWidestMerge),
                           {},
                           {}});
    }
    std::stable_sort(merges_.begin(), merges_.end(),
                     [](const Range& a, const Range& b) { return a.firstRow < b.firstRow; });
}

bool WorkbookSheet::Next(TableRow& row) {
    std::string_view element;
    while (rows_.Next(element)) {
        if (!document_->load_buffer(element.data(), element.size(), kParse)) {
            Fail("the workbook is broken after row " + std::to_string(row_));
        }
        const pugi::xml_node node = document_->first_child();
        const std::string_view number = AttributeOf(node, "r");
        const std::optional<int> told = ParseInteger(number);
        const std::size_t next =
            number.empty() ? row_ + 1 : static_cast<std::size_t>(std::max(told.value_or(0), 0));
        if (next <= row_ || next > kMostRows) {
            Fail("the workbook is broken: row " + Quoted(number) + " after row " +
                 std::to_string(row_));
        }
        row_ = next;
        row.number = row_;
        row.cells.clear();
        texts_.clear();
        ReadCells(node, row);
        Merge(row);
        if (std::any_of(row.cells.begin(), row.cells.end(), HasText)) {
            return true;
        }
    }
    return false;
}

void WorkbookSheet::ReadCells(const pugi::xml_node& node, TableRow& row) {
    std::size_t next = 0;
    for (const pugi::xml_node& cell : node.children()) {
        if (LocalName(cell.name()) != "c") {
            continue;
        }
        const std::string_view text = AttributeOf(cell, "r");
        CellReference reference{row_, next};
        if ((!text.empty() && !ReadReference(text, reference)) || reference.row != row_ ||
            reference.column >= kMostColumns) {
            Fail("the workbook is broken: cell " + Quoted(text) + " in row " +
                 std::to_string(row_));
        }
        if (row.cells.size() <= reference.column) {
            row.cells.resize(reference.column + 1);
        }
        ReadCell(cell, row.cells[reference.column]);
        next = reference.column + 1;
    }
}

std::string_view WorkbookSheet::Keep(std::string text) {
    return texts_.emplace_back(std::move(text));
}

void WorkbookSheet::ReadCell(const pugi::xml_node& node, Cell& cell) {
    const std::string_view type = AttributeOf(node, "t");
    const pugi::xml_node value = ChildOf(node, "v");
    std::string text =
        type == "inlineStr" ? TextOfRuns(ChildOf(node, "is")) : std::string(value.text().get());
    if (text.empty() && type != "str" && ChildOf(node, "f")) {
        cell.fault =
            "a formula without a stored value; open the workbook in a spreadsheet program "
            "and save it";
        return;
    }
    if (type == "s") {
        const std::optional<int> index = ParseInteger(text);
        const std::string* const shared =
            index && *index >= 0 ? workbook_.SharedText(static_cast<std::size_t>(*index)) : nullptr;
        if (shared == nullptr) {
            cell.fault = "a text that the workbook does not have";
            return;
        }
        cell.shown = cell.value = *shared;
    } else if (type == "b") {
        cell.shown = cell.value = text == "0" ? "FALSE" : "TRUE";
    } else if (type.empty() || type == "n") {
        ReadNumber(node, text, cell);
    } else {
        cell.shown = cell.value = Keep(std::move(text));
    }
    if (cell.shown.size() > kLongestCell) {
        cell = {};
        cell.fault = "a text of more than 32767 bytes";
    }
}

void WorkbookSheet::ReadNumber(const pugi::xml_node& node, const std::string& text, Cell& cell) {
    const std::optional<double> number = ParseNumber(text);
    if (!number) {
        cell.shown = cell.value = Keep(text);
        return;
    }
    const std::optional<int> style = ParseInteger(AttributeOf(node, "s"));
    const NumberFormat& format = workbook_.Format(static_cast<std::size_t>(style.value_or(0)));
    using Kind = NumberFormat::Kind;
    if (format.GetKind() == Kind::kGeneral || format.GetKind() == Kind::kText) {
        cell.shown = cell.value = Keep(ShortestText(*number));
        return;
    }
    cell.shown = Keep(format.Show(*number, workbook_.Since1904()));
    switch (format.GetKind()) {
        case Kind::kPercent:
            cell.value = Keep(ShortestText(*number * 100.0) + "%");
            break;
        case Kind::kNumber:
            cell.value = Keep(ShortestText(*number));
            break;
        default:
            cell.value = cell.shown;
    }
}

/// Gives merged cells the text of their first one.
void WorkbookSheet::Merge(TableRow& row) {
    std::erase_if(begun_, [&](std::size_t i) { return merges_[i].lastRow < row_; });
    for (; nextMerge_ < merges_.size() && merges_[nextMerge_].firstRow <= row_; ++nextMerge_) {
        Range& range = merges_[nextMerge_];
        if (range.firstRow == row_ && range.firstColumn < row.cells.size()) {
            range.shown = row.cells[range.firstColumn].shown;
            range.value = row.cells[range.firstColumn].value;
        }
        if (!range.shown.empty()) {
            begun_.push_back(nextMerge_);
        }
    }
    if (begun_.size() > kMostColumns) {
        Fail("more merged cells than columns in row " + std::to_string(row_));
    }
    for (const std::size_t i : begun_) {
        const Range& range = merges_[i];
        if (row.cells.size() <= range.lastColumn) {
            row.cells.resize(range.lastColumn + 1);
        }
        for (std::size_t column = range.firstColumn; column <= range.lastColumn; ++column) {
            if (row_ > range.firstRow || column > range.firstColumn) {
                row.cells[column] = {range.shown, range.value, true, nullptr};
            }
        }
    }
}

}  // namespace lab
