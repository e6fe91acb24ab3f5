#include "platform/oledb/providers/sqlite/SqliteStatement.h"

#include <sqlite3.h>

#include "platform/win32/code_page.h"

namespace oledb::sqlite {
void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

int SqliteStatement::Prepare(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* made = nullptr;
    const char* rest = sql.c_str();
    const int code =
        sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()) + 1, &made, &rest);
    handle_.reset(made);
    isWholeText_ = made != nullptr && win32::TrimBlanks(rest).empty();
    return code;
}

bool SqliteStatement::IsReading() const {
    return sqlite3_stmt_readonly(handle_.get()) != 0;
}

int SqliteStatement::ParameterCount() const {
    return sqlite3_bind_parameter_count(handle_.get());
}

void SqliteStatement::Bind(int index, const Value& value) {
    switch (value.kind) {
        case Value::Kind::Null:
            sqlite3_bind_null(handle_.get(), index);
            break;
        case Value::Kind::Integer:
            sqlite3_bind_int64(handle_.get(), index, value.integer);
            break;
        case Value::Kind::Real:
            sqlite3_bind_double(handle_.get(), index, value.real);
            break;
        case Value::Kind::Text:
            sqlite3_bind_text(handle_.get(), index, value.text.data(),
                              static_cast<int>(value.text.size()), SQLITE_STATIC);
            break;
        case Value::Kind::Blob:
            sqlite3_bind_blob(handle_.get(), index, value.text.data(),
                              static_cast<int>(value.text.size()), SQLITE_STATIC);
            break;
    }
}

int SqliteStatement::Step() {
    return sqlite3_step(handle_.get());
}

void SqliteStatement::Reset() {
    sqlite3_reset(handle_.get());
}

bool SqliteStatement::PreparedAnew() const {
    return sqlite3_stmt_status(handle_.get(), SQLITE_STMTSTATUS_REPREPARE, 0) != 0;
}

int SqliteStatement::ColumnCount() const {
    return sqlite3_column_count(handle_.get());
}

Value SqliteStatement::Column(int column) const {
    sqlite3_stmt* const row = handle_.get();
    const int type = sqlite3_column_type(row, column);
    if (type == SQLITE_INTEGER) {
        return Value::Of(std::int64_t{sqlite3_column_int64(row, column)});
    }
    if (type == SQLITE_FLOAT) return Value::Of(sqlite3_column_double(row, column));
    if (type == SQLITE_NULL) return {};
    const void* const bytes =
        type == SQLITE_BLOB ? sqlite3_column_blob(row, column) : sqlite3_column_text(row, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    Value value = Value::Of(std::string_view(static_cast<const char*>(bytes), size));
    if (type == SQLITE_BLOB) value.kind = Value::Kind::Blob;
    return value;
}

std::string SqliteStatement::ColumnName(int column) const {
    const char* const name = sqlite3_column_name(handle_.get(), column);
    return name == nullptr ? std::string() : name;
}

std::string SqliteStatement::OriginColumn(int column) const {
    const char* const name = sqlite3_column_origin_name(handle_.get(), column);
    return name == nullptr ? std::string() : name;
}

void SqliteStatement::AppendRow(RowBuffer& rows) const {
    rows.BeginRow();
    const int columns = ColumnCount();
    for (int column = 0; column < columns; ++column) rows.Append(Column(column));
}

}  // namespace oledb::sqlite
