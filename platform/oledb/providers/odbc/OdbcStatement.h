#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/providers/odbc/OdbcHandle.h"

namespace oledb::odbc {

/// A statement as a driver has it, for one connection. Its rows are fetched in blocks.
class OdbcStatement {
public:
    explicit OdbcStatement(std::string sql) : sql_(std::move(sql)) {}
    OdbcStatement(OdbcStatement&&) = default;
    OdbcStatement& operator=(OdbcStatement&&) = default;

    const std::string& Sql() const { return sql_; }
    /// True for a select.
    bool Reads() const;
    SQLHSTMT Handle() const { return handle_.Get(); }

    bool IsPreparedFor(const std::shared_ptr<OdbcLink>& link) const {
        return prepared_ && handle_.Link() == link;
    }

    // False when the driver refuses; Handle() then knows why.
    bool Prepare(const std::shared_ptr<OdbcLink>& link);
    /// Runs the prepared statement to its end. The values' texts must live that long.
    bool Execute(const std::vector<Value>& parameters);
    /// Appends the rows of the run and ends it. `cut` tells that a value was longer than its place,
    /// which has been made larger: rows are to be asked for again.
    bool FetchAll(RowBuffer& rows, bool& cut);

    std::size_t ColumnCount() const { return columns_.size(); }
    const std::string& ColumnName(std::size_t column) const { return columns_[column].name; }
    int ParameterCount() const;
    std::int64_t ChangedRows() const { return changed_; }

private:
    struct Column {
        std::string name;
        SQLSMALLINT type = 0;   ///< the server's
        SQLSMALLINT bound = 0;  ///< as what it is fetched
        std::size_t width = 0;  ///< bytes of one value's place
        std::vector<char> places;
        std::vector<SQLLEN> lengths;
    };
    struct Parameter {
        std::u16string wide;
        std::string narrow;
        std::int64_t integer = 0;
        SQLLEN length = 0;
    };

    bool Describe();
    void BindColumns();
    bool Bind(std::size_t index, const Value& value);
    /// A value of the block; `text` keeps its bytes.
    static Value Cell(const Column& column, std::size_t row, std::string& text);
    bool NoteCut(std::size_t rows);

    std::string sql_;
    OdbcStatementHandle handle_;
    bool prepared_ = false;
    std::vector<Column> columns_;
    std::vector<Parameter> parameters_;
    std::int64_t changed_ = 0;
    bool rowless_ = false;  ///< the run gave none
};

}  // namespace oledb::odbc
