#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lab {

/// One cell of a table, UTF-8. What a person sees and what is counted with may differ: a
/// spreadsheet shows 2.50 for 2.4999.
struct Cell {
    std::string_view shown;
    std::string_view value;  ///< a number with all its digits; for anything else as shown
    /// Belongs to a range of merged cells that begins in another one, whose text it repeats.
    bool continued = false;
    const char* fault = nullptr;  ///< why the cell's value cannot be known
};

struct TableRow {
    std::size_t number = 0;   ///< line of the file, or row of the sheet; from 1
    std::vector<Cell> cells;  ///< the texts live until the next row is read
};

/// A table that is read once from its first row to its last. Rows without any text are left out.
class TableSource {
public:
    virtual ~TableSource() = default;

    /// False at the end.
    virtual bool Next(TableRow& row) = 0;
    /// For messages: the file with the line, or the sheet and cell. Columns count from 0.
    virtual std::string Place(std::size_t row, std::size_t column) const = 0;
    /// True when each row has to have a cell for every column.
    virtual bool RowsAreFull() const = 0;
    /// How much of the table has been read, from 0 to 1.
    virtual double Progress() const = 0;
};

/// A cell of more bytes holds no datum of a sample; so many a spreadsheet's cell may have.
inline constexpr std::size_t kLongestCell = 32767;
/// What a sheet's or a line's columns end with.
inline constexpr std::size_t kMostColumns = 16384;

}  // namespace lab
