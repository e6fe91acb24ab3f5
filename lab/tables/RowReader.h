#pragma once

#include <optional>
#include <string>

#include "lab/tables/TableHeader.h"

namespace lab {

/// Reads the cells of one row by their column and refuses it when one will not do: its first fault
/// is the one told.
class RowReader {
public:
    RowReader(const TableSource& source, const TableHeader& header, const TableRow& row,
              Findings& findings);

    /// A name of up to `limit` characters that sheets, their marks and the database can hold.
    std::string Name(Column column, std::size_t limit);
    /// A text of up to `limit` characters, which may be empty; empty without such a column.
    std::string Text(Column column, std::size_t limit);
    /// A number from 0 up that a 32-bit float can hold, as it is stored; nothing for an empty cell,
    /// and without such a column.
    std::optional<double> Number(Column column);
    /// A number, or two of them as in 1.2~1.4; the second is the greater one.
    struct Range {
        std::optional<double> from;
        std::optional<double> to;
    };
    Range NumberOrRange(Column column);
    /// Number of a cell that must not be empty.
    double Needed(Column column);
    /// Likewise, of any sign and not rounded to what is stored.
    std::optional<double> Measured(Column column);
    /// A value in a column of sizes; nothing for an empty cell.
    std::optional<double> Value(std::size_t index, Unit unit);
    int Integer(Column column, int low, int high);
    bool IsEmpty(std::size_t index) const;
    /// The cell as it stands, without blanks around it.
    std::string Field(Column column) const;

    void Fail(std::size_t index, const std::string& reason);
    void Fail(Column column, const std::string& reason) { Fail(header_.IndexOf(column), reason); }
    bool Failed() const { return failed_; }
    std::string Place(std::size_t index) const { return source_.Place(row_.number, index); }

private:
    const Cell& At(std::size_t index) const;
    void FailText(std::size_t index, const std::string& reason);
    std::optional<double> Read(std::size_t index, Unit unit);

    const TableSource& source_;
    const TableHeader& header_;
    const TableRow& row_;
    Findings& findings_;
    bool failed_ = false;
};

}  // namespace lab
