#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/oledb/InitString.h"
#include "platform/oledb/Value.h"
#include "platform/oledb/oledb_errors.h"

// What a database has to bring to be a provider. Interfaces, properties, accessors and conversions
// are common to all. Every failing call leaves its reason with SetLastError (last_error.h), unless
// it says otherwise.

namespace oledb {

/// The rows of an executed select, as they were at that moment, and the ways to change them.
class Selection {
public:
    virtual ~Selection() = default;
    virtual std::size_t RowCount() const = 0;
    virtual std::size_t ColumnCount() const = 0;
    /// For messages: the table, and the name of a column, from 0; a computed one's is its number.
    virtual std::string Title() const = 0;
    virtual std::string ColumnName(std::size_t column) const = 0;
    /// What the rows are that no change may be asked of; empty when it may.
    virtual std::string ChangeFault() const = 0;
    /// The row's columns, with what Update has made of them. Rows count from 0; the texts live
    /// until the next call.
    virtual HRESULT Read(std::size_t row, std::vector<Value>& values) = 0;
    /// Changes exactly this row. DB_E_NOTSUPPORTED when rows have no identity, DB_E_DELETEDROW when
    /// the row is gone; DB_E_TIMEOUT, DB_SEC_E_PERMISSIONDENIED and E_FAIL when it is not the row
    /// that stands in the way. A failure is not told but leaves its bare reason.
    virtual HRESULT Update(std::size_t row, const std::vector<ColumnValue>& values,
                           std::string& reason) = 0;
    virtual HRESULT Delete(std::size_t row, std::string& reason) = 0;
    virtual HRESULT Insert(const std::vector<ColumnValue>& values, std::string& reason) = 0;
};

/// A statement in the database's own SQL, with `?` for its parameters. Its failures, and those of
/// the next class's calls with a `reason`, are not told but leave their bare reason.
class Statement {
public:
    virtual ~Statement() = default;
    /// Runs the statement from its start with a value for each parameter; the texts live until it
    /// is run again.
    virtual HRESULT Execute(const std::vector<Value>& parameters, std::string& reason) = 0;
    /// Goes to the next row, first to the first; `found` is false when there is none, which ends
    /// the run.
    virtual HRESULT Fetch(bool& found, std::string& reason) = 0;
    /// Rows that Execute has changed.
    virtual std::int64_t ChangedRows() const = 0;
    /// A column of the row, from 0; its text lives until the next call.
    virtual Value Column(std::size_t column) const = 0;
    virtual std::string ColumnName(std::size_t column) const = 0;
};

/// An open database.
class Connection {
public:
    virtual ~Connection() = default;
    /// For messages: the file, or the server and its database.
    virtual std::string Name() const = 0;
    /// What makes the texts of a column sort by their bytes, behind its type in CREATE TABLE.
    virtual const char* BinaryOrder() const { return ""; }
    /// Runs `statement` (UTF-8), which must be one select and nothing else.
    virtual HRESULT Select(std::string_view statement, std::unique_ptr<Selection>& selection) = 0;
    /// Prepares `sql` (UTF-8), one statement of any kind.
    virtual HRESULT Prepare(std::string_view sql, std::unique_ptr<Statement>& statement,
                            std::string& reason) = 0;
    /// Names of a table's columns; none when there is no such table.
    virtual HRESULT Columns(const std::string& table, std::vector<std::string>& names,
                            std::string& reason) = 0;
    /// What is changed up to Commit is written together or, after Rollback, not at all. Nobody else
    /// writes meanwhile. Failures as those of changes.
    virtual HRESULT Begin(std::string& reason) = 0;
    virtual HRESULT Commit(std::string& reason) = 0;
    /// To be called also when Begin, Commit or a change has failed.
    virtual void Rollback() = 0;
};

/// What a database is opened for. Create makes one that is not there; Read changes nothing in it.
enum class Access { Read, Change, Create };

struct Provider {
    const char* name;
    HRESULT(*connect)
    (const InitString& properties, Access access, std::shared_ptr<Connection>& connection);
};
/// The properties that an initialisation string (UTF-8) lists, and the provider that they name,
/// without regard to case.
HRESULT ReadInitString(std::string_view utf8, InitString& properties, const Provider*& provider);

}  // namespace oledb
