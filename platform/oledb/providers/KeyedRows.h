#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/Value.h"
#include "platform/oledb/oledb_errors.h"

// What a provider brings so that the rows of its selects can be changed (KeyedSelection.h).

namespace oledb {

/// A select whose rows also tell which row of the table they are: the columns of the row's identity
/// come behind those asked for, so that a column's number in ORDER BY stays its own.
struct KeyedRows {
    std::string title;          ///< for messages
    bool fromOneTable = false;  ///< one that tells its rows apart
    std::string reader;         ///< the user when he may only read the table
    std::string table;          ///< its name for other statements
    /// Name of the table's column behind a column of the select; empty for a computed one.
    std::vector<std::string> origins;
    /// A column's name as the select has it, for messages; none: its origin.
    std::vector<std::string> names;
    /// The identity's columns, as they stand in statements and by their names. None: the rows are
    /// no single rows of the table.
    std::vector<std::string> keys;
    std::vector<std::string> keyOrigins;
    std::string rowStatement;  ///< the select for the one row with an identity
    /// What makes an update give the row's new identity, where changing a row changes that too.
    std::string returning;

    /// The condition that a row is the one with an identity: "key=? AND …".
    std::string KeyCondition() const {
        std::string condition;
        for (const std::string& key : keys) {
            condition += (condition.empty() ? "" : " AND ") + key + "=?";
        }
        return condition;
    }
};

/// Statements about single rows. Failures are not told but leave their bare reason.
class RowAccess {
public:
    virtual ~RowAccess() = default;
    virtual std::string Quoted(const std::string& name) const = 0;
    virtual HRESULT ReadRows(const std::string& sql, const std::vector<Value>& parameters,
                             RowBuffer& rows, std::string& reason) = 0;
    /// Runs a statement that changes one row; `returned` becomes what it gives.
    /// DB_E_DELETEDROW when no row was changed.
    virtual HRESULT ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                              RowBuffer& returned, std::string& reason) = 0;
};

}  // namespace oledb
