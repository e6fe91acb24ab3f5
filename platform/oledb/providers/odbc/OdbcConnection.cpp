#include "platform/oledb/providers/odbc/OdbcConnection.h"

#include <cstddef>

#include "platform/oledb/last_error.h"
#include "platform/oledb/providers/KeyedSelection.h"
#include "platform/oledb/providers/odbc/OdbcDirectStatement.h"
#include "platform/oledb/providers/sql_tokens.h"

namespace oledb::odbc {
namespace {

/// Selects kept prepared; far more than a project's tables need.
constexpr std::size_t kKeptPlans = 64;

/// The columns of a select's list, by the names that they have there. One that is not the table's
/// as it stands, a name, perhaps behind the table's, and nothing else, is empty.
std::vector<std::string> PlainColumns(const std::string& list) {
    std::vector<std::string> names;
    bool plain = true;
    std::size_t length = 0;
    for (const Token& token : Tokens(list)) {
        if (token.IsSign(',')) length = 0;
        if (token.IsSign(',')) continue;
        if (length == 0) names.emplace_back();
        const bool isName =
            token.kind == Token::Kind::Word || token.kind == Token::Kind::QuotedName;
        // name, or name "." name
        plain = (plain || length == 0) && length < 3 && (length == 1 ? token.IsSign('.') : isName);
        names.back() = plain && isName ? token.Unquoted() : "";
        ++length;
    }
    return names;
}

}  // namespace

HRESULT OdbcConnection::PrepareKeyed(const SelectText& text, Plan& plan, std::string& reason) {
    const std::vector<std::string>& keys = plan.rows.keys;
    std::string head = text.distinct ? "SELECT DISTINCT " : "SELECT ";
    head += text.list;
    for (const std::string& key : keys) head += "," + key;
    head += " FROM " + text.from;
    plan.statement = OdbcStatement(head + text.tail);
    const HRESULT result = database_.Prepare(plan.statement, reason);
    if (FAILED(result)) return result;
    plan.hasParameters = true;
    if (!keys.empty()) plan.rows.rowStatement = head + " WHERE " + plan.rows.KeyCondition();
    const bool movingKey = keys.size() == 1 && keys[0] == database_.Server().rowId;
    if (movingKey) plan.rows.returning = database_.Server().returningRowId;
    std::vector<std::string> plain = PlainColumns(text.list);
    const std::size_t columns = plan.statement.ColumnCount() - keys.size();
    const bool matched = plain.size() == columns;  // not when the list has a "*"
    for (std::size_t column = 0; column < plan.statement.ColumnCount(); ++column) {
        const std::string& name = plan.statement.ColumnName(column);
        const bool known = !matched || column >= columns || !plain[column].empty();
        (column < columns ? plan.rows.origins : plan.rows.keyOrigins).push_back(known ? name : "");
    }
    if (matched) plan.rows.names = std::move(plain);
    return S_OK;
}

HRESULT OdbcConnection::MakePlan(const SelectText& text, Plan& plan, std::string& reason) {
    plan.rows.title = text.table.empty() ? "select" : text.table;
    plan.rows.table = text.name;
    plan.rows.fromOneTable = text.fromOneTable;
    HRESULT result = S_OK;
    if (text.fromOneTable && !text.distinct) {
        const bool quoted = text.name.find_first_of("\"`[") != std::string::npos;
        result = database_.Keys(quoted ? text.schema : database_.Folded(text.schema),
                                quoted ? text.table : database_.Folded(text.table), plan.rows.keys,
                                reason);
        if (FAILED(result)) return result;
        // Rows that cannot be told apart, as those of a view, are not a table's.
        plan.rows.fromOneTable = !plan.rows.keys.empty();
    }
    if (plan.rows.fromOneTable && !text.distinct) {
        result = database_.FindReader(text.name, plan.rows.reader, reason);
        if (FAILED(result)) return result;
    }
    if (text.fromOneTable && SUCCEEDED(result = PrepareKeyed(text, plan, reason))) return S_OK;
    if (text.fromOneTable && result != DB_E_ERRORSINCOMMAND) return result;
    // As it was given: so the server's message is about the text that the caller knows.
    plan.rows.keys.clear();
    plan.rows.fromOneTable = false;
    plan.statement = OdbcStatement(text.statement);
    result = database_.Prepare(plan.statement, reason);
    plan.rows.origins.resize(plan.statement.ColumnCount());
    return result;
}

HRESULT OdbcConnection::Execute(const std::shared_ptr<Plan>& plan, const SelectText& text,
                                std::unique_ptr<Selection>& selection, std::string& reason) {
    RowBuffer rows;
    const HRESULT result =
        database_.Run(plan->statement, plan->hasParameters ? text.parameters : std::vector<Value>(),
                      rows, reason);
    if (FAILED(result)) return result;
    selection = std::make_unique<KeyedSelection>(
        shared_from_this(), std::shared_ptr<const KeyedRows>(plan, &plan->rows), std::move(rows));
    return S_OK;
}

HRESULT OdbcConnection::Select(std::string_view statement, std::unique_ptr<Selection>& selection) {
    SelectText text;
    std::string reason;
    HRESULT result = text.Parse(statement, reason);
    if (FAILED(result)) return SetLastError(result, "statement " + reason);
    const std::string key = text.Key();
    const auto kept = plans_.find(key);
    if (kept != plans_.end()) {
        result = Execute(kept->second, text, selection, reason);
        if (SUCCEEDED(result) || result == DB_E_TIMEOUT) {
            return FAILED(result) ? SetLastError(result, kept->second->rows.title + ": " + reason)
                                  : result;
        }
        plans_.erase(kept);  // the table may be another one than it was
    }
    const auto plan = std::make_shared<Plan>();
    result = MakePlan(text, *plan, reason);
    if (SUCCEEDED(result)) result = Execute(plan, text, selection, reason);
    if (FAILED(result)) return SetLastError(result, plan->rows.title + ": " + reason);
    if (plans_.size() >= kKeptPlans) plans_.clear();
    plans_.insert_or_assign(key, plan);
    return S_OK;
}

HRESULT OdbcConnection::Prepare(std::string_view sql, std::unique_ptr<Statement>& statement,
                                std::string& reason) {
    auto made = std::make_unique<OdbcDirectStatement>(shared_from_this(), std::string(sql));
    const HRESULT result = made->Prepare(reason);
    if (SUCCEEDED(result)) statement = std::move(made);
    return result;
}

HRESULT OdbcConnection::ReadRows(const std::string& sql, const std::vector<Value>& parameters,
                                 RowBuffer& rows, std::string& reason) {
    std::int64_t changed = 0;
    return database_.RunKept(sql, parameters, rows, changed, reason);
}

HRESULT OdbcConnection::ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                                  RowBuffer& returned, std::string& reason) {
    // By itself it is a transaction, too: a lost connection shows before anything is changed, and
    // no other program of this system writes at the same time.
    const bool alone = !database_.InTransaction();
    HRESULT result = alone ? database_.Begin(reason) : S_OK;
    if (FAILED(result)) return result;
    std::int64_t changed = 0;
    result = database_.RunKept(sql, parameters, returned, changed, reason);
    if (SUCCEEDED(result) && changed == 0) {
        reason = "the row does not exist any more";
        result = DB_E_DELETEDROW;
    }
    if (!alone) return result;
    if (SUCCEEDED(result)) result = database_.Commit(reason);
    if (FAILED(result)) database_.Rollback();
    return result;
}

HRESULT Connect(const InitString& properties, Access access,
                std::shared_ptr<Connection>& connection) {
    auto made = std::make_shared<OdbcConnection>();
    const HRESULT result = made->Open(properties, access);
    if (SUCCEEDED(result)) connection = std::move(made);
    return result;
}

}  // namespace oledb::odbc
