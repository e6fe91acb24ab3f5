#include "lab/tables/RowReader.h"

#include <algorithm>
#include <cmath>

#include "lab/numbers.h"
#include "platform/win32/code_page.h"
#include "src/core/sample_and_sheet_names.h"

namespace lab {

namespace {
bool HasControlCharacter(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

std::string Count(std::size_t count, const char* unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}
}  // namespace

RowReader::RowReader(const TableSource& source, const TableHeader& header, const TableRow& row,
                     Findings& findings)
    : source_(source), header_(header), row_(row), findings_(findings) {
    const std::size_t width = header.Width();
    if (source.RowsAreFull() && row.cells.size() != width) {
        failed_ = true;
        findings_.Refuse(Place(0),
                         Count(row.cells.size(), "field") + " instead of " + std::to_string(width));
    }
    for (std::size_t i = width; i < row.cells.size() && !failed_; ++i) {
        if (!IsEmpty(i)) {
            failed_ = true;
            findings_.Refuse(Place(i), Quoted(row.cells[i].shown) + ": the column has no header");
        }
    }
}

const Cell& RowReader::At(std::size_t index) const {
    static const Cell kEmpty;
    return index < row_.cells.size() ? row_.cells[index] : kEmpty;
}

bool RowReader::IsEmpty(std::size_t index) const {
    const Cell& cell = At(index);
    return cell.fault == nullptr && cell.shown.find_first_not_of(" \t") == std::string_view::npos;
}

std::string RowReader::Field(Column column) const {
    return PlainText(At(header_.IndexOf(column)).shown);
}

void RowReader::Fail(std::size_t index, const std::string& reason) {
    if (!failed_) {
        findings_.Refuse(Place(index),
                         (index < header_.Width() ? header_.Text(index) : "") + reason);
        failed_ = true;
    }
}

void RowReader::FailText(std::size_t index, const std::string& reason) {
    Fail(index, " " + Quoted(At(index).shown) + ": " + reason);
}

std::string RowReader::Text(Column column, std::size_t limit) {
    const std::size_t index = header_.IndexOf(column);
    std::string text(At(index).shown);
    std::string gbk;
    if (At(index).fault != nullptr) {
        Fail(index, std::string(": ") + At(index).fault);
    } else if (HasControlCharacter(text)) {
        Fail(index, ": a line break or another control character");
    } else if (!win32::TryGbkFromUtf8(text, gbk)) {
        FailText(index, "a character that GBK does not have");
    } else if (gbk.size() > limit && win32::Utf16FromUtf8(text).size() > limit) {
        FailText(index, "more than " + std::to_string(limit) + " characters");
    }
    return text;
}

std::string RowReader::Name(Column column, std::size_t limit) {
    const std::size_t index = header_.IndexOf(column);
    const std::string name(At(index).shown);
    std::string gbk;
    if (name.empty() && At(index).fault == nullptr) {
        Fail(index, ": missing");
    } else if (win32::TryGbkFromUtf8(name, gbk)) {
        const NameFault fault = FindNameFault(gbk, limit);
        if (fault.kind == NameFault::Kind::kBlankAtEnd) {
            FailText(index, "blanks around the name");
        } else if (fault.kind == NameFault::Kind::kCharacter) {
            FailText(index, std::string(1, fault.character) +
                                " cannot stand in the name of a sheet or in its mark");
        }
    }
    return Text(column, limit);
}

/// Nothing for an empty cell, and for one whose fault has been told.
std::optional<double> RowReader::Read(std::size_t index, Unit unit) {
    if (IsEmpty(index)) {
        return std::nullopt;
    }
    const Cell& cell = At(index);
    if (cell.fault != nullptr) {
        Fail(index, std::string(": ") + cell.fault);
        return std::nullopt;
    }
    const Quantity quantity = ReadQuantity(cell.value, unit);
    if (!quantity.Good()) {
        FailText(index, quantity.fault);
        return std::nullopt;
    }
    return quantity.number;
}

std::optional<double> RowReader::Measured(Column column) {
    return Read(header_.IndexOf(column), ColumnUnit(column));
}

std::optional<double> RowReader::Value(std::size_t index, Unit unit) {
    const std::optional<double> number = Read(index, unit);
    if (!number) {
        return std::nullopt;
    }
    if (At(index).continued) {
        FailText(index, "of merged cells: it is not known to which it belongs");
    } else if (*number < 0.0) {
        FailText(index, "below 0");
    } else if (!StoredNumber(*number)) {
        FailText(index, "outside the range of a 32-bit float");
    } else {
        return StoredNumber(*number);
    }
    return std::nullopt;
}

std::optional<double> RowReader::Number(Column column) {
    const std::size_t index = header_.IndexOf(column);
    const std::optional<double> number = Read(index, ColumnUnit(column));
    if (!number) {
        return std::nullopt;
    }
    if (*number < 0.0) {
        FailText(index, "below 0");
    } else if (!StoredNumber(*number)) {
        FailText(index, "outside the range of a 32-bit float");
    }
    return StoredNumber(*number);
}

RowReader::Range RowReader::NumberOrRange(Column column) {
    const std::size_t index = header_.IndexOf(column);
    const std::string text = PlainText(At(index).shown);
    const std::size_t tilde = text.find('~');
    if (tilde == std::string::npos) {
        return {Number(column), std::nullopt};
    }
    const Quantity from = ReadQuantity(text.substr(0, tilde), ColumnUnit(column));
    const Quantity to = ReadQuantity(text.substr(tilde + 1), ColumnUnit(column));
    if (!from.Good() || !to.Good() || from.number < 0.0 || !(to.number > from.number) ||
        !StoredNumber(to.number)) {
        FailText(index, "neither a number nor a range that goes up");
        return {};
    }
    return {StoredNumber(from.number), StoredNumber(to.number)};
}

double RowReader::Needed(Column column) {
    const std::optional<double> number = Number(column);
    if (!number) {
        Fail(column, ": missing");
    }
    return number.value_or(0.0);
}

int RowReader::Integer(Column column, int low, int high) {
    const std::optional<int> number = ParseInteger(PlainText(At(header_.IndexOf(column)).value));
    if (!number || *number < low || *number > high) {
        FailText(header_.IndexOf(column),
                 "not an integer from " + std::to_string(low) + " to " + std::to_string(high));
        return low;
    }
    return *number;
}

}  // namespace lab
