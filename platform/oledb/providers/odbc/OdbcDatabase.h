#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/oledb/InitString.h"
#include "platform/oledb/Provider.h"
#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/providers/odbc/OdbcHandle.h"
#include "platform/oledb/providers/odbc/OdbcStatement.h"
#include "platform/oledb/providers/odbc/ServerKind.h"

namespace oledb::odbc {

/// A connection to a database server. One that was lost is made again before the next statement
/// that stands outside of a transaction.
class OdbcDatabase {
public:
    OdbcDatabase() = default;
    OdbcDatabase(const OdbcDatabase&) = delete;
    OdbcDatabase& operator=(const OdbcDatabase&) = delete;

    /// By the properties of an initialisation string (odbc_init_string.h); a failure is told.
    HRESULT Open(const InitString& properties, Access access);

    const std::string& Name() const { return name_; }
    const ServerKind& Server() const { return *server_; }
    bool InTransaction() const { return inTransaction_; }
    /// A name as it stands in statements when it is written as the catalogue has it.
    std::string Quoted(const std::string& name) const { return quote_ + name + quote_; }

    // Failures of these are those of changes (Provider.h).

    /// Makes the statement one of this connection, if it is not yet.
    HRESULT Prepare(OdbcStatement& statement, std::string& reason);
    /// Runs a statement; `rows` become its. A lock is waited for as lock_wait.h says.
    HRESULT Run(OdbcStatement& statement, const std::vector<Value>& parameters, RowBuffer& rows,
                std::string& reason);
    /// The same, prepared as it was for the same text before; gives the number of changed rows.
    HRESULT RunKept(const std::string& sql, const std::vector<Value>& parameters, RowBuffer& rows,
                    std::int64_t& changed, std::string& reason);
    HRESULT Begin(std::string& reason);
    HRESULT Commit(std::string& reason);
    void Rollback();

    /// Names of a table's columns by the catalogue; none when there is no such table.
    HRESULT Columns(const std::string& table, std::vector<std::string>& names, std::string& reason);
    /// Columns that tell the rows of a table apart, as they stand in statements: its primary key,
    /// else the best row id that catalogue or server know. None for a view.
    HRESULT Keys(const std::string& schema, const std::string& table,
                 std::vector<std::string>& keys, std::string& reason);
    /// Sets `reader` to the user when he may only read the table, named as in statements.
    HRESULT FindReader(const std::string& name, std::string& reader, std::string& reason);
    /// A name as the catalogue has it when it stands without quotes in statements.
    std::string Folded(std::string name) const;

private:
    using CatalogueCall = std::function<SQLRETURN(SQLHSTMT statement)>;

    HRESULT Connect(std::string& reason);
    HRESULT SetUp(std::string& reason);
    std::string Info(SQLUSMALLINT what) const;
    /// Connects again when the connection was lost and no transaction was lost with it.
    HRESULT CheckConnected(std::string& reason);
    /// What the handle says of the call that failed; notes when the connection was lost.
    HRESULT Fault(SQLSMALLINT type, SQLHANDLE handle, std::string& reason);
    HRESULT RunOnce(OdbcStatement& statement, const std::vector<Value>& parameters, RowBuffer& rows,
                    std::string& reason);
    HRESULT TakeWriteLock(std::string& reason);
    void SetAutocommit(bool on);
    /// Rows that a catalogue function gives of one table: the values of two of their columns.
    HRESULT ReadCatalogue(const CatalogueCall& call, const std::string& table,
                          SQLUSMALLINT tableColumn, SQLUSMALLINT first, SQLUSMALLINT second,
                          std::vector<std::pair<std::string, std::string>>& rows,
                          std::string& reason);

    std::u16string connectionText_;
    std::string name_;
    std::string password_;  ///< stands in no message
    int timeoutSeconds_ = 0;
    Access access_ = Access::Change;
    const ServerKind* server_ = nullptr;
    std::string quote_;
    SQLUSMALLINT identifierCase_ = SQL_IC_MIXED;
    std::shared_ptr<OdbcLink> link_;
    bool lost_ = false;
    bool inTransaction_ = false;
    std::unordered_map<std::string, OdbcStatement> kept_;  ///< by their text
    std::map<std::pair<std::string, std::string>, std::vector<std::string>> keys_;
};

}  // namespace oledb::odbc
