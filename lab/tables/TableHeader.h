#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "lab/tables/ColumnNames.h"
#include "lab/tables/Findings.h"
#include "lab/tables/TableSource.h"

namespace lab {

/// Which columns a kind of table has.
struct TableForm {
    std::initializer_list<Column> keys;    ///< by these a header is known
    std::initializer_list<Column> others;  ///< these it may have, too
    bool sizes = false;                    ///< whether columns may be sizes
};

/// What the columns of a table are.
class TableHeader {
public:
    struct SizeColumn {
        std::size_t index;
        SizeHeader header;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// Reads the table up to and with its header, which titles may stand above and which may have
    /// several lines: a heading over a group of columns, and below it what each of them is. `next`
    /// is then the first row of data; `more` is false when there is none. Columns that are not
    /// known are noted. False, with the reasons in `findings`, when no header is found or its
    /// columns cannot be told apart.
    bool Read(TableSource& source, const TableForm& form, const ColumnNames& names, TableRow& next,
              bool& more, Findings& findings);

    /// Index of a column, kNone when the table has none.
    std::size_t IndexOf(Column column) const { return indexes_[static_cast<std::size_t>(column)]; }
    bool Has(Column column) const { return IndexOf(column) != kNone; }
    /// In the order of the table.
    const std::vector<SizeColumn>& Sizes() const { return sizes_; }
    /// Whether the heading over the columns of sizes is a name of this column.
    bool SizesAreUnder(Column column) const { return group_ == column; }
    std::size_t Width() const { return texts_.size(); }
    /// The header of a column as it stands in the table.
    const std::string& Text(std::size_t index) const { return texts_[index]; }
    std::size_t Row() const { return row_; }

private:
    /// One line of the header: its texts, folded.
    using Line = std::vector<std::string>;

    bool Recognise(const TableSource& source, const std::vector<Line>& lines, const TableForm& form,
                   const ColumnNames& names, Findings& findings);
    bool Enter(const std::string& folded, std::size_t index, const TableForm& form,
               const ColumnNames& names, std::string& fault);
    void FindGroup(const Line& line, const ColumnNames& names);

    std::array<std::size_t, kColumnCount> indexes_{};
    std::vector<SizeColumn> sizes_;
    std::optional<Column> group_;
    std::vector<std::string> texts_;
    std::size_t row_ = 0;
};

}  // namespace lab
