#include "platform/oledb/providers/sqlite/SelectPlan.h"

#include <sqlite3.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/oledb/InitString.h"

namespace oledb::sqlite {
namespace {

/// The columns of a table, and those of its primary key in the key's order.
struct TableColumns {
    std::vector<std::string> names;
    std::vector<std::string> primaryKey;

    bool Has(std::string_view name) const {
        return std::any_of(names.begin(), names.end(), [&](const std::string& column) {
            return InitString::SameKeyword(column, name);
        });
    }
};

std::string SchemaPrefix(const SelectText& text) {
    return text.schema.empty() ? "" : QuotedName(text.schema) + ".";
}

/// Sets `found` to whether the name is a table's, and not a view's or nobody's.
HRESULT IsTable(SqliteDatabase& database, const SelectText& text, bool& found) {
    SqliteStatement statement;
    const int code = statement.Prepare(
        database.Handle(), "SELECT 1 FROM " + SchemaPrefix(text) +
                               "sqlite_master WHERE type='table' AND name=? COLLATE NOCASE");
    if (code != SQLITE_OK) return database.Failure(code, text.table);
    found = false;
    return database.Run(statement, {Value::Of(std::string_view(text.table))}, text.table,
                        [&] { found = true; });
}

HRESULT ReadColumns(SqliteDatabase& database, const SelectText& text, TableColumns& columns) {
    SqliteStatement statement;
    const int code =
        statement.Prepare(database.Handle(), "PRAGMA " + SchemaPrefix(text) + "table_info(" +
                                                 QuotedName(text.table) + ")");
    if (code != SQLITE_OK) return database.Failure(code, text.table);
    std::vector<std::pair<std::int64_t, std::string>> keys;
    const HRESULT result = database.Run(statement, {}, text.table, [&] {
        std::string name(statement.Column(1).text);
        if (const std::int64_t place = statement.Column(5).integer; place > 0) {
            keys.emplace_back(place, name);
        }
        columns.names.push_back(std::move(name));
    });
    std::sort(keys.begin(), keys.end());
    for (auto& [place, name] : keys) columns.primaryKey.push_back(std::move(name));
    return result;
}

}  // namespace

HRESULT SelectPlan::FindKeys(SqliteDatabase& database, const SelectText& text) {
    bool table = false;
    HRESULT result = IsTable(database, text, table);
    if (FAILED(result) || !table) return result;
    TableColumns columns;
    result = ReadColumns(database, text, columns);
    if (FAILED(result)) return result;
    for (const char* rowId : {"rowid", "_rowid_", "oid"}) {
        if (columns.Has(rowId)) continue;
        SqliteStatement probe;
        if (probe.Prepare(database.Handle(),
                          std::string("SELECT ") + rowId + " FROM " + rows_.table) == SQLITE_OK) {
            rows_.keys = {rowId};
            return S_OK;
        }
        break;
    }
    for (const std::string& name : columns.primaryKey) rows_.keys.push_back(QuotedName(name));
    return S_OK;
}

bool SelectPlan::PrepareKeyed(SqliteDatabase& database, const SelectText& text) {
    std::string head = text.distinct ? "SELECT DISTINCT " : "SELECT ";
    head += text.list;
    for (const std::string& key : rows_.keys) head += "," + key;
    head += " FROM " + text.from;
    if (statement_.Prepare(database.Handle(), head + text.tail) != SQLITE_OK) return false;
    hasParameters_ = true;
    if (!rows_.keys.empty()) rows_.rowStatement = head + " WHERE " + rows_.KeyCondition();
    return true;
}

HRESULT SelectPlan::Prepare(SqliteDatabase& database, const SelectText& text) {
    rows_.fromOneTable = text.fromOneTable;
    rows_.title = text.table.empty() ? "select" : text.table;
    rows_.table = SchemaPrefix(text) + QuotedName(text.table);
    if (rows_.fromOneTable && !text.distinct) {
        const HRESULT result = FindKeys(database, text);
        if (FAILED(result)) return result;
        // Rows that cannot be told apart, as those of a view, are not a table's.
        rows_.fromOneTable = !rows_.keys.empty();
    }
    if (!text.fromOneTable || !PrepareKeyed(database, text)) {
        // As it was given: so the library's message is about the text that the caller knows.
        rows_.keys.clear();
        rows_.fromOneTable = false;
        const int code = statement_.Prepare(database.Handle(), text.statement);
        if (code != SQLITE_OK) return database.Failure(code, rows_.title);
    }
    const int columns = statement_.ColumnCount() - static_cast<int>(rows_.keys.size());
    for (int column = 0; column < statement_.ColumnCount(); ++column) {
        (column < columns ? rows_.origins : rows_.keyOrigins)
            .push_back(statement_.OriginColumn(column));
    }
    return S_OK;
}

}  // namespace oledb::sqlite
