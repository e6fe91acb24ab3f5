#include "platform/oledb/providers/sqlite/SqliteConnection.h"

#include <sqlite3.h>

#include <cstddef>

#include "platform/oledb/last_error.h"
#include "platform/oledb/providers/KeyedSelection.h"
#include "platform/oledb/providers/SelectText.h"
#include "platform/oledb/providers/sqlite/SqliteDirectStatement.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace oledb::sqlite {
namespace {

/// Selects kept prepared; far more than a project's tables need.
constexpr std::size_t kKeptPlans = 64;

}  // namespace

HRESULT SqliteConnection::MakePlan(const SelectText& text, const std::string& key,
                                   std::shared_ptr<SelectPlan>& plan) {
    auto made = std::make_shared<SelectPlan>();
    const HRESULT result = made->Prepare(database_, text);
    if (FAILED(result)) return result;
    if (plans_.size() >= kKeptPlans) plans_.clear();
    plans_.insert_or_assign(key, made);
    plan = std::move(made);
    return S_OK;
}

HRESULT SqliteConnection::Execute(const std::shared_ptr<SelectPlan>& plan, const SelectText& text,
                                  std::unique_ptr<Selection>& selection) {
    SqliteStatement& statement = plan->Statement();
    RowBuffer rows;
    const HRESULT result =
        database_.Run(statement, plan->HasParameters() ? text.parameters : std::vector<Value>(),
                      plan->Rows().title, [&] { statement.AppendRow(rows); });
    if (FAILED(result)) return result;
    selection = std::make_unique<KeyedSelection>(
        shared_from_this(), std::shared_ptr<const KeyedRows>(plan, &plan->Rows()), std::move(rows));
    return S_OK;
}

HRESULT SqliteConnection::Select(std::string_view statement,
                                 std::unique_ptr<Selection>& selection) {
    HRESULT result = database_.CheckPlace();
    if (FAILED(result)) return result;
    SelectText text;
    std::string error;
    result = text.Parse(statement, error);
    if (FAILED(result)) return SetLastError(result, "statement " + error);
    const std::string key = text.Key();
    std::shared_ptr<SelectPlan> plan;
    if (const auto kept = plans_.find(key); kept != plans_.end()) {
        plan = kept->second;
        result = Execute(plan, text, selection);
        // The table may be another one than it was, also when the statement still runs: its rows
        // could be told apart by the wrong column.
        const bool changed = FAILED(result) || plan->Statement().PreparedAnew();
        if (!changed || result == DB_E_TIMEOUT) return result;
        plans_.erase(key);
    }
    result = MakePlan(text, key, plan);
    return FAILED(result) ? result : Execute(plan, text, selection);
}

HRESULT SqliteConnection::Prepare(std::string_view sql, std::unique_ptr<Statement>& statement,
                                  std::string& reason) {
    auto made = std::make_unique<SqliteDirectStatement>(shared_from_this());
    const HRESULT result = made->Prepare(std::string(sql), reason);
    if (SUCCEEDED(result)) statement = std::move(made);
    return result;
}

HRESULT SqliteConnection::ReadRows(const std::string& sql, const std::vector<Value>& parameters,
                                   RowBuffer& rows, std::string& reason) {
    SqliteStatement statement;
    const int code = statement.Prepare(database_.Handle(), sql);
    if (code != SQLITE_OK) return database_.Reason(code, reason);
    return database_.Run(
        statement, parameters, [&] { statement.AppendRow(rows); }, reason);
}

HRESULT SqliteConnection::Columns(const std::string& table, std::vector<std::string>& names,
                                  std::string& reason) {
    SqliteDirectStatement statement(shared_from_this());
    HRESULT result = statement.Prepare("SELECT name FROM pragma_table_info(?)", reason);
    if (SUCCEEDED(result)) {
        result = statement.Execute({Value::Of(std::string_view(table))}, reason);
    }
    bool found = false;
    while (SUCCEEDED(result) && SUCCEEDED(result = statement.Fetch(found, reason)) && found) {
        names.emplace_back(statement.Column(0).text);
    }
    return result;
}

HRESULT Connect(const InitString& properties, Access access,
                std::shared_ptr<Connection>& connection) {
    for (const InitString::Entry& entry : properties.Entries()) {
        if (!InitString::SameKeyword(entry.keyword, "Provider") &&
            !InitString::SameKeyword(entry.keyword, "Data Source")) {
            return SetLastError(DB_E_BADINITSTRING,
                                "initialisation string: SQLite knows no \"" + entry.keyword + "\"");
        }
    }
    const std::string* const source = properties.Find("Data Source");
    if (source == nullptr || source->empty()) {
        return SetLastError(DB_E_BADINITSTRING, "initialisation string: Data Source is missing");
    }
    auto made = std::make_shared<SqliteConnection>();
    const HRESULT result = made->Open(win32::FileSystemPath(win32::GbkFromUtf8(*source)), access);
    if (SUCCEEDED(result)) connection = std::move(made);
    return result;
}

}  // namespace oledb::sqlite
