#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/oledb/Provider.h"

namespace oledb {

/// A database for programs that speak its SQL themselves, whichever kind the initialisation string
/// names. Whatever fails here throws win32::Failure with the database's name and its own words; a
/// database that another program has locked is waited for as lock_wait.h says.
class SqlDatabase {
public:
    /// `initString` is UTF-8, a Data Source in it a Windows path.
    SqlDatabase(std::string_view initString, Access access);

    /// Runs a statement without parameters to its end.
    void Execute(std::string_view sql);
    /// Names of a table's columns; none when there is no such table.
    std::vector<std::string> Columns(const std::string& table) const;
    /// What makes the texts of a column sort by their bytes, behind its type in CREATE TABLE.
    const char* BinaryOrder() const { return connection_->BinaryOrder(); }

private:
    friend class SqlStatement;
    friend class SqlTransaction;
    /// Throws when `result` is a failure.
    void Check(HRESULT result, const std::string& reason) const;

    std::shared_ptr<Connection> connection_;
};

/// A prepared statement, UTF-8, with `?` for its parameters; its database outlives it.
class SqlStatement {
public:
    SqlStatement(SqlDatabase& database, std::string_view sql);

    /// Parameters count from 1, and all have to be given. A value stays until it is replaced.
    void Bind(int parameter, int value) { Bind(parameter, std::int64_t{value}); }
    void Bind(int parameter, std::int64_t value);
    void Bind(int parameter, double value);
    void Bind(int parameter, const std::optional<double>& value);
    void Bind(int parameter, std::string_view utf8);
    void BindNull(int parameter);

    /// Goes to the next row, with the first call and after Bind to the first one; false when there
    /// is none.
    bool Step();
    /// Runs the statement to its end; gives the number of rows that it has changed.
    std::int64_t Run();

    /// Columns of the row, from 0.
    bool IsNull(int column) const;
    /// 0 for a null. A number may also be written as text: any other text throws, and so does a
    /// broken number.
    int Integer(int column) const;
    /// Nothing for a null and for a blank text; any other text that is no number throws.
    std::optional<double> Number(int column) const;
    /// UTF-8, numbers as decimals; empty for a null.
    std::string Text(int column) const;

private:
    struct Parameter {
        Value value;
        std::string text;
    };
    Parameter& At(int parameter);
    void Execute();
    Value Column(int column) const;
    [[noreturn]] void RefuseNumber(int column, const char* what) const;

    SqlDatabase& database_;
    std::unique_ptr<Statement> statement_;
    std::vector<Parameter> parameters_;
    bool running_ = false;
};

/// What is changed from here to Commit is written together; without Commit it is taken back. Nobody
/// else writes meanwhile.
class SqlTransaction {
public:
    explicit SqlTransaction(SqlDatabase& database);
    ~SqlTransaction();
    SqlTransaction(const SqlTransaction&) = delete;
    SqlTransaction& operator=(const SqlTransaction&) = delete;

    void Commit();

private:
    SqlDatabase& database_;
    bool open_ = true;
};

}  // namespace oledb
