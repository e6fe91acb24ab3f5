#include "platform/oledb/providers/sqlite/SqliteDirectStatement.h"

#include <sqlite3.h>

#include <utility>

namespace oledb::sqlite {

HRESULT SqliteDirectStatement::Prepare(const std::string& sql, std::string& reason) {
    const int code = statement_.Prepare(connection_->Database().Handle(), sql);
    if (code != SQLITE_OK) return connection_->Database().Reason(code, reason);
    if (!statement_.IsWholeText()) {
        reason = "more than one statement, or none: " + sql;
        return DB_E_ERRORSINCOMMAND;
    }
    return S_OK;
}

HRESULT SqliteDirectStatement::Execute(const std::vector<Value>& parameters, std::string& reason) {
    SqliteDatabase& database = connection_->Database();
    statement_.Reset();
    if (statement_.ParameterCount() != static_cast<int>(parameters.size())) {
        reason = "the statement has " + std::to_string(statement_.ParameterCount()) +
                 " parameters, and " + std::to_string(parameters.size()) + " values were given";
        return DB_E_ERRORSINCOMMAND;
    }
    const HRESULT result = database.CheckFor(statement_.IsReading(), reason);
    if (FAILED(result)) return result;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        statement_.Bind(static_cast<int>(i) + 1, parameters[i]);
    }
    stepped_ = statement_.Step();
    if (stepped_ != SQLITE_ROW && stepped_ != SQLITE_DONE) {
        const HRESULT failure = database.Reason(std::exchange(stepped_, 0), reason);
        statement_.Reset();
        return failure;
    }
    changed_ = statement_.IsReading() ? 0 : database.NoteChanges();
    return S_OK;
}

HRESULT SqliteDirectStatement::Fetch(bool& found, std::string& reason) {
    const int code = stepped_ != 0 ? std::exchange(stepped_, 0) : statement_.Step();
    found = code == SQLITE_ROW;
    if (found) return S_OK;
    const HRESULT result =
        code == SQLITE_DONE ? S_OK : connection_->Database().Reason(code, reason);
    statement_.Reset();  // ends what the run has locked
    return result;
}

Value SqliteDirectStatement::Column(std::size_t column) const {
    return statement_.Column(static_cast<int>(column));
}

std::string SqliteDirectStatement::ColumnName(std::size_t column) const {
    return statement_.ColumnName(static_cast<int>(column));
}

}  // namespace oledb::sqlite
