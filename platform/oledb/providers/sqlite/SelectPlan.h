#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/oledb/providers/sqlite/SelectText.h"
#include "platform/oledb/providers/sqlite/SqliteDatabase.h"
#include "platform/oledb/providers/sqlite/SqliteStatement.h"

namespace oledb::sqlite {

/// A select prepared so that each row also tells which row of the table it is: the columns of the
/// row's identity come behind those asked for, so that a column's number in ORDER BY stays its own.
class SelectPlan {
public:
    HRESULT Prepare(SqliteDatabase& database, const SelectText& text);

    SqliteStatement& Statement() { return statement_; }
    /// True when the parameters of the text are to be bound.
    bool HasParameters() const { return hasParameters_; }
    bool FromOneTable() const { return fromOneTable_; }
    /// True when each row is one row of the table.
    bool Identified() const { return !keys_.empty(); }
    std::size_t KeyCount() const { return keys_.size(); }
    std::size_t ColumnCount() const { return origins_.size() - keys_.size(); }
    /// Name of the table's column behind a column of the select, or of the identity; empty for a
    /// computed one. Both from 0.
    const std::string& Origin(std::size_t column) const { return origins_[column]; }
    const std::string& KeyOrigin(std::size_t key) const { return origins_[ColumnCount() + key]; }
    /// For messages.
    const std::string& Title() const { return title_; }
    /// The table's name for other statements.
    const std::string& Table() const { return table_; }
    /// The condition that a row is the one with an identity: "key=? AND …".
    std::string KeyCondition() const;
    /// The select for the one row with an identity.
    const std::string& RowStatement() const { return rowStatement_; }

private:
    /// How the table's rows are told apart: the row id by a name that no column hides, or the
    /// primary key of a table without row ids. Nothing for a view.
    HRESULT FindKeys(SqliteDatabase& database, const SelectText& text);
    bool PrepareKeyed(SqliteDatabase& database, const SelectText& text);

    SqliteStatement statement_;
    bool hasParameters_ = false;
    bool fromOneTable_ = false;
    std::vector<std::string> keys_;     ///< quoted where they are columns
    std::vector<std::string> origins_;  ///< of the select, then of the identity
    std::string title_;
    std::string table_;
    std::string rowStatement_;
};

}  // namespace oledb::sqlite
