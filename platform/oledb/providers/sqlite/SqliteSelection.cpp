#include "platform/oledb/providers/sqlite/SqliteSelection.h"

#include <sqlite3.h>

#include "platform/oledb/last_error.h"

namespace oledb::sqlite {

std::string SqliteSelection::ColumnName(std::size_t column) const {
    const std::string& origin = plan_->Origin(column);
    return origin.empty() ? std::to_string(column + 1) : origin;
}

HRESULT SqliteSelection::Execute(const std::vector<Value>& parameters) {
    SqliteStatement& statement = plan_->Statement();
    return connection_->Database().Run(statement,
                                       plan_->HasParameters() ? parameters : std::vector<Value>(),
                                       plan_->Title(), [&] { statement.AppendRow(rows_); });
}

// Reading

void SqliteSelection::ReadKnown(std::size_t row, std::vector<Value>& values) const {
    const auto changed = changed_.find(row);
    if (changed == changed_.end()) {
        rows_.Read(row, values);
    } else {
        changed->second.row.Read(0, values);
    }
}

std::vector<Value> SqliteSelection::Key(std::size_t row) const {
    std::vector<Value> key;
    ReadKnown(row, key);
    key.erase(key.begin(), key.end() - static_cast<std::ptrdiff_t>(plan_->KeyCount()));
    return key;
}

HRESULT SqliteSelection::ReadAgain(Changed& changed) {
    std::vector<Value> key;
    changed.row.Read(0, key);
    SqliteStatement statement;
    SqliteDatabase& database = connection_->Database();
    const int code = statement.Prepare(database.Handle(), plan_->RowStatement());
    if (code != SQLITE_OK) return database.Failure(code, plan_->Title());
    RowBuffer row;
    const HRESULT result =
        database.Run(statement, key, plan_->Title(), [&] { statement.AppendRow(row); });
    if (FAILED(result)) return result;
    if (row.RowCount() != 1) {
        return SetLastError(DB_E_DELETEDROW, plan_->Title() + ": the row does not exist any more");
    }
    changed = {std::move(row), true};
    return S_OK;
}

HRESULT SqliteSelection::Read(std::size_t row, std::vector<Value>& values) {
    const auto changed = changed_.find(row);
    if (changed != changed_.end() && !changed->second.complete) {
        const HRESULT result = ReadAgain(changed->second);
        if (FAILED(result)) return result;
    }
    ReadKnown(row, values);
    values.resize(plan_->ColumnCount());
    return S_OK;
}

// Changing

HRESULT SqliteSelection::CheckIdentified(std::string& reason) const {
    if (plan_->Identified()) return S_OK;
    reason = "the rows are no single rows of the table";
    return DB_E_NOTSUPPORTED;
}

HRESULT SqliteSelection::CheckColumns(const std::vector<ColumnValue>& values,
                                      std::string& reason) const {
    for (const ColumnValue& value : values) {
        if (!plan_->Origin(value.column).empty()) continue;
        reason = "column " + ColumnName(value.column) + " is a computed value";
        return DB_E_ERRORSOCCURRED;
    }
    return S_OK;
}

void SqliteSelection::NoteChanged(std::size_t row, std::vector<Value> key,
                                  const std::vector<ColumnValue>& values) {
    for (std::size_t i = 0; i < key.size(); ++i) {
        for (const ColumnValue& value : values) {
            if (plan_->Origin(value.column) == plan_->KeyOrigin(i)) key[i] = value.value;
        }
    }
    Changed changed;
    changed.row.BeginRow();
    for (const Value& value : key) changed.row.Append(value);
    changed_.insert_or_assign(row, std::move(changed));
}

HRESULT SqliteSelection::Update(std::size_t row, const std::vector<ColumnValue>& values,
                                std::string& reason) {
    HRESULT result = CheckIdentified(reason);
    if (SUCCEEDED(result)) result = CheckColumns(values, reason);
    if (FAILED(result) || values.empty()) return result;
    std::string sql = "UPDATE " + plan_->Table() + " SET ";
    std::vector<Value> parameters;
    for (const ColumnValue& value : values) {
        if (!parameters.empty()) sql += ',';
        sql += QuotedName(plan_->Origin(value.column)) + "=?";
        parameters.push_back(value.value);
    }
    sql += " WHERE " + plan_->KeyCondition();
    std::vector<Value> key = Key(row);
    parameters.insert(parameters.end(), key.begin(), key.end());
    result = connection_->Database().ChangeOne(sql, parameters, reason);
    if (SUCCEEDED(result)) NoteChanged(row, std::move(key), values);
    return result;
}

HRESULT SqliteSelection::Delete(std::size_t row, std::string& reason) {
    const HRESULT result = CheckIdentified(reason);
    if (FAILED(result)) return result;
    return connection_->Database().ChangeOne(
        "DELETE FROM " + plan_->Table() + " WHERE " + plan_->KeyCondition(), Key(row), reason);
}

HRESULT SqliteSelection::Insert(const std::vector<ColumnValue>& values, std::string& reason) {
    HRESULT result = CheckIdentified(reason);
    if (SUCCEEDED(result)) result = CheckColumns(values, reason);
    if (FAILED(result)) return result;
    std::string columns;
    std::string places;
    std::vector<Value> parameters;
    for (const ColumnValue& value : values) {
        if (!columns.empty()) columns += ',';
        columns += QuotedName(plan_->Origin(value.column));
        places += places.empty() ? "?" : ",?";
        parameters.push_back(value.value);
    }
    return connection_->Database().ChangeOne(
        "INSERT INTO " + plan_->Table() + "(" + columns + ") VALUES(" + places + ")", parameters,
        reason);
}

}  // namespace oledb::sqlite
