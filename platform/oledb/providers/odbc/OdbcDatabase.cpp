#include "platform/oledb/providers/odbc/OdbcDatabase.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/oledb/last_error.h"
#include "platform/oledb/lock_wait.h"
#include "platform/oledb/providers/odbc/odbc_init_string.h"
#include "platform/oledb/providers/odbc/odbc_text.h"
#include "platform/win32/code_page.h"

namespace oledb::odbc {
namespace {

/// Statements kept prepared; far more than the tables of a project need.
constexpr std::size_t kKeptStatements = 128;
constexpr auto kBetweenTries = std::chrono::milliseconds(5);
constexpr std::size_t kLongestName = 256;

/// Waits for a lock, a few milliseconds at a time.
class LockWait {
public:
    /// False when it is not to be waited for any longer.
    bool GoOn() {
        using std::chrono::milliseconds;
        const auto waited = std::chrono::steady_clock::now() - begin_;
        if (!GoesOnWaiting(std::chrono::duration_cast<milliseconds>(waited))) return false;
        std::this_thread::sleep_for(kBetweenTries);
        return true;
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

/// A driver's words in one line, without the names of who passed them on.
std::string Plain(std::string text) {
    while (text.starts_with('[') && text.find(']') != std::string::npos) {
        text.erase(0, text.find(']') + 1);
    }
    if (text.starts_with("ERROR: ")) text.erase(0, 7);
    text.resize(std::min(text.size(), text.find(";\n")));  // what it was doing follows
    std::string line;
    for (const char c : text) {
        const bool blank = static_cast<unsigned char>(c) <= ' ';
        if (!blank || (!line.empty() && line.back() != ' ')) line += blank ? ' ' : c;
    }
    return std::string(win32::TrimBlanks(line));
}

std::string Without(std::string text, const std::string& secret) {
    for (std::size_t at = 0;
         !secret.empty() && (at = text.find(secret, at)) != std::string::npos;) {
        text.replace(at, secret.size(), "***");
    }
    return text;
}

}  // namespace

// The connection

HRESULT OdbcDatabase::Open(const InitString& properties, Access access) {
    ConnectionFacts facts;
    std::string reason;
    if (!ReadConnectionFacts(properties, facts, reason)) {
        return SetLastError(DB_E_BADINITSTRING, "initialisation string: " + reason);
    }
    connectionText_ = WideText(facts.text);
    name_ = facts.name;
    password_ = facts.password;
    timeoutSeconds_ = facts.timeoutSeconds;
    access_ = access;
    server_ = &ServerKindOf("");
    const HRESULT result = Connect(reason);
    return FAILED(result) ? SetLastError(result, name_ + ": " + reason) : result;
}

HRESULT OdbcDatabase::Connect(std::string& reason) {
    kept_.clear();
    keys_.clear();
    link_ = std::make_shared<OdbcLink>();
    SQLSetConnectAttr(link_->Get(), SQL_ATTR_LOGIN_TIMEOUT,
                      AsPointer(static_cast<SQLULEN>(timeoutSeconds_)), 0);
    const SQLRETURN result = SQLDriverConnectW(link_->Get(), nullptr, Units(connectionText_),
                                               static_cast<SQLSMALLINT>(connectionText_.size()),
                                               nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        Fault(SQL_HANDLE_DBC, link_->Get(), reason);
        return E_FAIL;
    }
    lost_ = false;
    return SetUp(reason);
}

std::string OdbcDatabase::Info(SQLUSMALLINT what) const {
    SQLWCHAR text[kLongestName] = {};
    SQLSMALLINT bytes = 0;
    SQLGetInfoW(link_->Get(), what, text, sizeof(text), &bytes);
    return Utf8Text(text, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR));
}

HRESULT OdbcDatabase::SetUp(std::string& reason) {
    server_ = &ServerKindOf(Info(SQL_DBMS_NAME));
    quote_ = win32::TrimBlanks(Info(SQL_IDENTIFIER_QUOTE_CHAR));
    SQLGetInfoW(link_->Get(), SQL_IDENTIFIER_CASE, &identifierCase_, sizeof(identifierCase_),
                nullptr);
    for (const char* const statement :
         {server_->setUp, access_ == Access::Read ? server_->setUpReading : ""}) {
        if (*statement == '\0') continue;
        const OdbcHandle<SQL_HANDLE_STMT> direct(link_->Get());
        const std::u16string wide = WideText(statement);
        if (!SQL_SUCCEEDED(SQLExecDirectW(direct.Get(), Units(wide), SQL_NTS))) {
            return Fault(SQL_HANDLE_STMT, direct.Get(), reason);
        }
    }
    return S_OK;
}

HRESULT OdbcDatabase::CheckConnected(std::string& reason) {
    if (!lost_) return S_OK;
    if (inTransaction_) {
        reason = "the connection was lost";
        return E_FAIL;
    }
    return Connect(reason);
}

HRESULT OdbcDatabase::Fault(SQLSMALLINT type, SQLHANDLE handle, std::string& reason) {
    SQLWCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
    SQLWCHAR text[SQL_MAX_MESSAGE_LENGTH] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetDiagRecW(type, handle, 1, state, &native, text, SQL_MAX_MESSAGE_LENGTH, &length);
    if (!SQL_SUCCEEDED(result)) {
        reason = "the driver gives no reason";
        return E_FAIL;
    }
    const auto units =
        std::min<std::size_t>(static_cast<std::size_t>(length), SQL_MAX_MESSAGE_LENGTH - 1);
    reason = Without(Plain(Utf8Text(text, units)), password_);
    const std::string code = Utf8Text(state, SQL_SQLSTATE_SIZE);
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttr(link_->Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
    if (IsConnectionLoss(code) || dead == SQL_CD_TRUE) {
        lost_ = true;
        return E_FAIL;
    }
    const HRESULT kind = ResultOf(*server_, code, native, reason);
    if (kind == DB_E_TIMEOUT) reason = "database is locked: " + reason;
    return kind;
}

// Statements

HRESULT OdbcDatabase::Prepare(OdbcStatement& statement, std::string& reason) {
    HRESULT result = CheckConnected(reason);
    if (FAILED(result) || statement.IsPreparedFor(link_)) return result;
    if (statement.Prepare(link_)) return S_OK;
    result = Fault(SQL_HANDLE_STMT, statement.Handle(), reason);
    if (!lost_ || inTransaction_) return result;
    // Nothing has been asked of the server yet.
    result = Connect(reason);
    if (FAILED(result) || statement.Prepare(link_)) return result;
    return Fault(SQL_HANDLE_STMT, statement.Handle(), reason);
}

HRESULT OdbcDatabase::RunOnce(OdbcStatement& statement, const std::vector<Value>& parameters,
                              RowBuffer& rows, std::string& reason) {
    for (bool cut = true; cut;) {
        const HRESULT prepared = Prepare(statement, reason);
        if (FAILED(prepared)) return prepared;
        RowBuffer fetched;
        if (!statement.Execute(parameters) || !statement.FetchAll(fetched, cut)) {
            return Fault(SQL_HANDLE_STMT, statement.Handle(), reason);
        }
        if (!cut) rows = std::move(fetched);
    }
    return S_OK;
}

HRESULT OdbcDatabase::Run(OdbcStatement& statement, const std::vector<Value>& parameters,
                          RowBuffer& rows, std::string& reason) {
    LockWait wait;
    bool again = false;
    while (true) {
        const bool wasLost = lost_;
        const HRESULT result = RunOnce(statement, parameters, rows, reason);
        if (SUCCEEDED(result)) return result;
        if (result == DB_E_TIMEOUT && wait.GoOn()) continue;
        // What only reads may be asked once more of a connection that is made anew.
        const bool mayAsk = lost_ && !wasLost && !inTransaction_ && !again && statement.Reads();
        if (!mayAsk) return result;
        again = true;
    }
}

HRESULT OdbcDatabase::RunKept(const std::string& sql, const std::vector<Value>& parameters,
                              RowBuffer& rows, std::int64_t& changed, std::string& reason) {
    if (kept_.size() >= kKeptStatements) kept_.clear();
    // Out of the map while it runs: a connection made anew clears the map.
    auto node = kept_.extract(sql);
    OdbcStatement statement = node.empty() ? OdbcStatement(sql) : std::move(node.mapped());
    const HRESULT result = Run(statement, parameters, rows, reason);
    changed = statement.ChangedRows();
    if (SUCCEEDED(result)) kept_.insert_or_assign(sql, std::move(statement));
    return result;
}

// Transactions

void OdbcDatabase::SetAutocommit(bool on) {
    SQLSetConnectAttr(link_->Get(), SQL_ATTR_AUTOCOMMIT,
                      AsPointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
}

HRESULT OdbcDatabase::TakeWriteLock(std::string& reason) {
    if (*server_->tryWriteLock == '\0') return S_OK;
    LockWait wait;
    while (true) {
        RowBuffer rows;
        std::int64_t changed = 0;
        const HRESULT result = RunKept(server_->tryWriteLock, {}, rows, changed, reason);
        if (FAILED(result)) return result;
        std::vector<Value> row;
        rows.Read(0, row);
        if (row[0].integer == 1) return S_OK;
        if (!wait.GoOn()) {
            reason = "database is locked: another program is writing";
            return DB_E_TIMEOUT;
        }
    }
}

HRESULT OdbcDatabase::Begin(std::string& reason) {
    HRESULT result = CheckConnected(reason);
    for (bool again = false; SUCCEEDED(result); again = true) {
        SetAutocommit(false);
        inTransaction_ = true;
        result = TakeWriteLock(reason);
        // Nothing has been changed yet: a connection that was lost meanwhile is made again.
        if (SUCCEEDED(result) || !lost_ || again) break;
        inTransaction_ = false;
        result = Connect(reason);
    }
    if (FAILED(result)) Rollback();
    return result;
}

HRESULT OdbcDatabase::Commit(std::string& reason) {
    HRESULT result = CheckConnected(reason);
    if (FAILED(result)) return result;
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_->Get(), SQL_COMMIT))) {
        result = Fault(SQL_HANDLE_DBC, link_->Get(), reason);
        if (lost_) {
            reason = "the connection was lost at the end; whether it was written is not known: " +
                     reason;
        }
        return result;
    }
    inTransaction_ = false;
    SetAutocommit(true);
    NoteLockHad();
    return S_OK;
}

void OdbcDatabase::Rollback() {
    if (!inTransaction_) return;
    inTransaction_ = false;
    if (lost_) return;
    lost_ = !SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_->Get(), SQL_ROLLBACK));
    SetAutocommit(true);
}

// The catalogue

std::string OdbcDatabase::Folded(std::string name) const {
    for (char& c : name) {
        if (identifierCase_ == SQL_IC_LOWER && c >= 'A' && c <= 'Z') c += 'a' - 'A';
        if (identifierCase_ == SQL_IC_UPPER && c >= 'a' && c <= 'z') c -= 'a' - 'A';
    }
    return name;
}

HRESULT OdbcDatabase::ReadCatalogue(const CatalogueCall& call, const std::string& table,
                                    SQLUSMALLINT tableColumn, SQLUSMALLINT first,
                                    SQLUSMALLINT second,
                                    std::vector<std::pair<std::string, std::string>>& rows,
                                    std::string& reason) {
    const HRESULT result = CheckConnected(reason);
    if (FAILED(result)) return result;
    const OdbcHandle<SQL_HANDLE_STMT> statement(link_->Get());
    const auto text = [&](SQLUSMALLINT column) {
        SQLWCHAR units[kLongestName] = {};
        SQLLEN bytes = 0;
        SQLGetData(statement.Get(), column, SQL_C_WCHAR, units, sizeof(units), &bytes);
        return bytes <= 0
                   ? std::string()
                   : Utf8Text(units, std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR),
                                              kLongestName - 1));
    };
    if (!SQL_SUCCEEDED(call(statement.Get()))) return S_OK;  // it has nothing of that kind
    while (SQL_SUCCEEDED(SQLFetch(statement.Get()))) {
        // The name that was asked for is a pattern to some functions. Columns are read in their
        // order, which some drivers want.
        const bool named = tableColumn == 0 || InitString::SameKeyword(text(tableColumn), table);
        std::string one = text(first);
        std::string other = second == 0 ? std::string() : text(second);
        if (named) rows.emplace_back(std::move(one), std::move(other));
    }
    return S_OK;
}

HRESULT OdbcDatabase::Columns(const std::string& table, std::vector<std::string>& names,
                              std::string& reason) {
    const std::u16string wide = WideText(Folded(table));
    std::vector<std::pair<std::string, std::string>> rows;
    const HRESULT result = ReadCatalogue(
        [&](SQLHSTMT statement) {
            return SQLColumnsW(statement, nullptr, 0, nullptr, 0, Units(wide), SQL_NTS, nullptr, 0);
        },
        table, 3, 4, 0, rows, reason);
    for (auto& [name, unused] : rows) names.push_back(std::move(name));
    return result;
}

HRESULT OdbcDatabase::Keys(const std::string& schema, const std::string& table,
                           std::vector<std::string>& keys, std::string& reason) {
    const auto known = keys_.find({schema, table});
    if (known != keys_.end()) {
        keys = known->second;
        return S_OK;
    }
    const std::u16string wide = WideText(table);
    const std::u16string wideSchema = WideText(schema);
    SQLWCHAR* const in = schema.empty() ? nullptr : Units(wideSchema);
    std::vector<std::pair<std::string, std::string>> kinds;
    HRESULT result = ReadCatalogue(
        [&](SQLHSTMT statement) {
            return SQLTablesW(statement, nullptr, 0, in, SQL_NTS, Units(wide), SQL_NTS, nullptr, 0);
        },
        table, 3, 4, 0, kinds, reason);
    if (FAILED(result) || kinds.empty() || kinds.front().first.find("TABLE") == std::string::npos) {
        return result;
    }
    std::vector<std::pair<std::string, std::string>> parts;  // name, then its place in the key
    result = ReadCatalogue(
        [&](SQLHSTMT statement) {
            return SQLPrimaryKeysW(statement, nullptr, 0, in, SQL_NTS, Units(wide), SQL_NTS);
        },
        table, 3, 4, 5, parts, reason);
    for (const auto& [name, place] : parts) keys.push_back(Quoted(name));
    if (SUCCEEDED(result) && keys.empty()) {
        result = ReadCatalogue(
            [&](SQLHSTMT statement) {
                return SQLSpecialColumnsW(statement, SQL_BEST_ROWID, nullptr, 0, in, SQL_NTS,
                                          Units(wide), SQL_NTS, SQL_SCOPE_TRANSACTION,
                                          SQL_NO_NULLS);
            },
            table, 0, 2, 0, parts, reason);
        for (const auto& [name, place] : parts) keys.push_back(name);
    }
    if (SUCCEEDED(result) && keys.empty() && *server_->rowId != '\0') keys = {server_->rowId};
    if (SUCCEEDED(result)) keys_[{schema, table}] = keys;
    return result;
}

HRESULT OdbcDatabase::FindReader(const std::string& name, std::string& reader,
                                 std::string& reason) {
    if (*server_->mayChange == '\0') return S_OK;
    RowBuffer rows;
    std::int64_t changed = 0;
    const HRESULT result =
        RunKept(server_->mayChange, {Value::Of(std::string_view(name))}, rows, changed, reason);
    if (FAILED(result)) return result;
    std::vector<Value> row;
    rows.Read(0, row);
    if (row[0].integer == 0) reader = Info(SQL_USER_NAME);
    return S_OK;
}

}  // namespace oledb::odbc
