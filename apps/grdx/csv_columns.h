#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/grdx/csv.h"

namespace console {

/// Reads CSV text whose first record must be the given header, letter by letter, and whose other
/// records must have a field for each of its columns. Records that do not are left out and named in
/// `errors`; so is a text without data.
std::vector<CsvRecord> ReadCsvTable(std::string_view text, const std::vector<std::string>& header,
                                    std::vector<LineError>& errors);

/// The fields of one record by their column, with what is wrong in it. The first fault of a record
/// is the one told.
class RecordReader {
public:
    RecordReader(const CsvRecord& record, const std::vector<std::string>& header)
        : record_(record), header_(header) {}

    /// A name of up to `limit` characters that sheets, their marks and the database can hold.
    std::string Name(std::size_t column, std::size_t limit);
    /// A text of up to `limit` characters, which may be empty.
    std::string Text(std::size_t column, std::size_t limit);
    /// A number from 0 up that a 32-bit float can hold, as it is stored.
    double Number(std::size_t column);
    bool IsEmpty(std::size_t column) const { return record_.fields[column].empty(); }
    int Integer(std::size_t column, int low, int high);
    /// The field as it stands.
    const std::string& Field(std::size_t column) const { return record_.fields[column]; }

    void Fail(const std::string& reason);
    bool Failed() const { return !reason_.empty(); }
    LineError Error() const { return {record_.line, reason_}; }

private:
    std::string Quoted(std::size_t column) const;

    const CsvRecord& record_;
    const std::vector<std::string>& header_;
    std::string reason_;
};

}  // namespace console
