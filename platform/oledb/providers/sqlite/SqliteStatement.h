#pragma once

#include <memory>
#include <string>

#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/Value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace oledb::sqlite {

/// A prepared statement.
class SqliteStatement {
public:
    /// SQLITE_OK, or the library's code. `sql` is UTF-8; of several statements it is the first.
    int Prepare(sqlite3* database, const std::string& sql);
    /// True when the text was one statement.
    bool IsWholeText() const { return isWholeText_; }
    /// True when running it changes nothing.
    bool IsReading() const;
    int ParameterCount() const;

    /// `index` from 1. The value's text must live until the statement has run.
    void Bind(int index, const Value& value);
    /// SQLITE_ROW, SQLITE_DONE or the library's error code.
    int Step();
    /// Ends the run, and with it the statement's transaction; to be called after every run.
    void Reset();

    /// True when the library has prepared the text anew since Prepare, as the schema had changed:
    /// its columns may be other ones.
    bool PreparedAnew() const;

    int ColumnCount() const;
    std::string ColumnName(int column) const;
    /// Column of the row stepped to, from 0; its text lives until the next step.
    Value Column(int column) const;
    /// Name of the table's column behind a column of the result; empty for a computed one.
    std::string OriginColumn(int column) const;
    /// Appends the row stepped to.
    void AppendRow(RowBuffer& rows) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    bool isWholeText_ = false;
};

}  // namespace oledb::sqlite
