#pragma once

#include "platform/oledb/providers/KeyedRows.h"
#include "platform/oledb/providers/SelectText.h"
#include "platform/oledb/providers/sqlite/SqliteDatabase.h"
#include "platform/oledb/providers/sqlite/SqliteStatement.h"

namespace oledb::sqlite {

/// A select prepared so that its rows can be told apart.
class SelectPlan {
public:
    HRESULT Prepare(SqliteDatabase& database, const SelectText& text);

    SqliteStatement& Statement() { return statement_; }
    /// True when the parameters of the text are to be bound.
    bool HasParameters() const { return hasParameters_; }
    const KeyedRows& Rows() const { return rows_; }

private:
    /// How the table's rows are told apart: the row id by a name that no column hides, or the
    /// primary key of a table without row ids. Nothing for a view.
    HRESULT FindKeys(SqliteDatabase& database, const SelectText& text);
    bool PrepareKeyed(SqliteDatabase& database, const SelectText& text);

    SqliteStatement statement_;
    bool hasParameters_ = false;
    KeyedRows rows_;
};

}  // namespace oledb::sqlite
