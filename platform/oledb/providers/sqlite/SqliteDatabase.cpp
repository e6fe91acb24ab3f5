#include "platform/oledb/providers/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <chrono>
#include <string_view>
#include <thread>

#include "platform/oledb/last_error.h"
#include "platform/oledb/lock_wait.h"
#include "platform/oledb/providers/sqlite/write_protected.h"
#include "platform/win32/file_place.h"

namespace oledb::sqlite {
namespace {

/// Statements kept prepared; far more than the tables of a project need.
constexpr std::size_t kKeptStatements = 64;

/// A busy handler of the library's: waits for a database that another program has locked as long as
/// lock_wait.h says.
int WaitForLock(void* /*data*/, int tries) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kBetweenTries = std::chrono::milliseconds(5);
    static Clock::time_point begin;
    if (tries == 0) begin = Clock::now();
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    if (!GoesOnWaiting(waited)) return 0;
    std::this_thread::sleep_for(kBetweenTries);
    return 1;
}

/// Brings what is in the write-ahead log into the file of a database that is about to be closed,
/// when this connection has written. The last one to close a database does so by itself, but of
/// programs that end at the same moment each may find the others still there, and the file copied
/// without its log would lack their changes. Waits for nobody: what a reader still needs, or
/// another program is bringing in, stays in the log, where it is as safe.
void EmptyLogIfWritten(sqlite3* database) {
    if (sqlite3_total_changes(database) == 0) return;
    sqlite3_wal_checkpoint_v2(database, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

HRESULT ResultOf(int code, std::string_view message) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return DB_E_TIMEOUT;
        case SQLITE_CONSTRAINT:
            return DB_E_INTEGRITYVIOLATION;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return DB_SEC_E_PERMISSIONDENIED;
        case SQLITE_ERROR:
            return message.starts_with("no such table") ? DB_E_NOTABLE : DB_E_ERRORSINCOMMAND;
        default:
            return E_FAIL;
    }
}

}  // namespace

std::string QuotedName(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

void SqliteDatabase::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

HRESULT SqliteDatabase::Reason(int code, std::string& reason) const {
    reason = sqlite3_errmsg(handle_.get());
    return ResultOf(code, reason);
}

HRESULT SqliteDatabase::Failure(int code, const std::string& title) const {
    std::string reason;
    const HRESULT result = Reason(code, reason);
    return SetLastError(result, title + ": " + reason);
}

SqliteDatabase::~SqliteDatabase() {
    if (!files_.DatabaseIsThere()) LeavePlace();
    // Beside another log than the open one others may be writing to the file.
    if (handle_ != nullptr && files_.AllAreThere()) EmptyLogIfWritten(Handle());
}

/// Its log stands under the name of the file that has taken the place, and would be taken for that
/// file's: what is in it belongs into the file that is open, wherever that is now.
void SqliteDatabase::LeavePlace() {
    SqliteStatement checkpoint;
    if (checkpoint.Prepare(Handle(), "PRAGMA wal_checkpoint(TRUNCATE)") == SQLITE_OK) {
        checkpoint.Step();
    }
}

HRESULT SqliteDatabase::CheckFiles(std::string& reason) {
    if (files_.AllAreThere()) return S_OK;
    if (!files_.DatabaseIsThere()) LeavePlace();
    reason = path_ +
             ": the database was replaced or deleted while it was open; the suite folder has to be "
             "opened again";
    return E_FAIL;
}

HRESULT SqliteDatabase::CheckPlace() {
    if (files_.DatabaseIsThere()) return S_OK;
    std::string reason;
    const HRESULT result = CheckFiles(reason);
    return SetLastError(result, reason);
}

HRESULT SqliteDatabase::CheckFor(bool reading, std::string& reason) {
    if (inTransaction_ || (reading && files_.DatabaseIsThere())) return S_OK;
    return CheckFiles(reason);
}

std::int64_t SqliteDatabase::NoteChanges() {
    if (!inTransaction_) NoteLockHad();
    return sqlite3_changes(Handle());
}

HRESULT SqliteDatabase::Open(const std::string& path, Access access) {
    path_ = path;
    // The real path: a link put there by now is no way to another file.
    win32::FilePlace place;
    std::string refusal;
    if (!win32::FindToWrite(path, place, refusal)) {
        return SetLastError(DB_SEC_E_PERMISSIONDENIED, refusal);
    }
    const std::string file = place.Path();
    sqlite3* opened = nullptr;
    // Also what is only read is opened for writing, as the last one to close a database can then
    // clear its log away.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW |
                      (access == Access::Create ? SQLITE_OPEN_CREATE : 0);
    int code = sqlite3_open_v2(file.c_str(), &opened, flags, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) return Failure(code, path);
    sqlite3_busy_handler(opened, WaitForLock, nullptr);
    std::int64_t pages = 0;
    sqlite3* snapshot = WouldLeaveLog(file) ? OpenSnapshot(file) : nullptr;
    if (snapshot == nullptr) {
        code = CountPages(pages);
        if (MayBeWriteProtected(code)) snapshot = OpenSnapshot(file);
    }
    if (snapshot != nullptr) {
        handle_.reset(snapshot);
        code = CountPages(pages);
    }
    if (code != SQLITE_OK) return Failure(code, path);
    if ((pages == 0) != (access == Access::Create)) {
        return SetLastError(E_FAIL, path + (pages == 0 ? ": file is empty" : ": is there already"));
    }
    if (snapshot == nullptr) files_.Remember(file);
    return SetUp(access);
}

HRESULT SqliteDatabase::SetUp(Access access) {
    std::string reason;
    const char* const kSetting =
        access == Access::Create ? "PRAGMA journal_mode = WAL" : "PRAGMA query_only = ON";
    const HRESULT result = access == Access::Change ? S_OK : RunKept(kSetting, {}, reason);
    if (FAILED(result)) return SetLastError(result, path_ + ": " + reason);
    SpareWaits();
    return S_OK;
}

/// The library opens any file and looks into it at the first question.
int SqliteDatabase::CountPages(std::int64_t& pages) {
    SqliteStatement statement;
    int code = statement.Prepare(Handle(), "PRAGMA page_count");
    if (code == SQLITE_OK) code = statement.Step();
    if (code != SQLITE_ROW) return code;
    pages = statement.Column(0).integer;
    return SQLITE_OK;
}

/// A write-ahead log stays whole without waiting for the disk at every change. Whether there is one
/// is the decision of whoever made the database.
void SqliteDatabase::SpareWaits() {
    SqliteStatement mode;
    if (mode.Prepare(Handle(), "PRAGMA journal_mode") != SQLITE_OK || mode.Step() != SQLITE_ROW ||
        mode.Column(0).text != "wal") {
        return;
    }
    SqliteStatement setting;
    if (setting.Prepare(Handle(), "PRAGMA synchronous=NORMAL") == SQLITE_OK) setting.Step();
}

int SqliteDatabase::StepThrough(SqliteStatement& statement, const std::vector<Value>& parameters,
                                const std::function<void()>& row) {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        statement.Bind(static_cast<int>(i) + 1, parameters[i]);
    }
    int code = SQLITE_ROW;
    while ((code = statement.Step()) == SQLITE_ROW) row();
    return code;
}

HRESULT SqliteDatabase::Run(SqliteStatement& statement, const std::vector<Value>& parameters,
                            const std::string& title, const std::function<void()>& row) const {
    std::string reason;
    const HRESULT result = Run(statement, parameters, row, reason);
    return FAILED(result) ? SetLastError(result, title + ": " + reason) : result;
}

HRESULT SqliteDatabase::Run(SqliteStatement& statement, const std::vector<Value>& parameters,
                            const std::function<void()>& row, std::string& reason) const {
    const int code = StepThrough(statement, parameters, row);
    const HRESULT result = code == SQLITE_DONE ? S_OK : Reason(code, reason);
    statement.Reset();
    return result;
}

HRESULT SqliteDatabase::RunKept(const std::string& sql, const std::vector<Value>& parameters,
                                std::string& reason) {
    if (changes_.size() >= kKeptStatements) changes_.clear();
    const auto [kept, isNew] = changes_.try_emplace(sql);
    const int prepared = isNew ? kept->second.Prepare(Handle(), sql) : SQLITE_OK;
    if (prepared != SQLITE_OK) {
        changes_.erase(kept);
        return Reason(prepared, reason);
    }
    return Run(
        kept->second, parameters, [] {}, reason);
}

HRESULT SqliteDatabase::ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                                  std::string& reason) {
    HRESULT result = inTransaction_ ? S_OK : CheckFiles(reason);
    if (SUCCEEDED(result)) result = RunKept(sql, parameters, reason);
    if (FAILED(result)) {
        // Some failures, and triggers that want it so, take the whole transaction back.
        const bool lost = inTransaction_ && sqlite3_get_autocommit(Handle()) != 0;
        return lost ? E_FAIL : result;
    }
    if (!inTransaction_) NoteLockHad();
    if (sqlite3_changes(Handle()) == 0) {
        reason = "the row does not exist any more";
        return DB_E_DELETEDROW;
    }
    return S_OK;
}

/// Asks for the right to write at once: one who has read by then could get it no more when somebody
/// else has written in between.
HRESULT SqliteDatabase::Begin(std::string& reason) {
    HRESULT result = CheckFiles(reason);
    if (SUCCEEDED(result)) result = RunKept("BEGIN IMMEDIATE", {}, reason);
    inTransaction_ = SUCCEEDED(result);
    return result;
}

HRESULT SqliteDatabase::Commit(std::string& reason) {
    HRESULT result = CheckFiles(reason);
    if (SUCCEEDED(result)) result = RunKept("COMMIT", {}, reason);
    if (FAILED(result)) return result;
    inTransaction_ = false;
    NoteLockHad();
    return S_OK;
}

void SqliteDatabase::Rollback() {
    std::string reason;
    if (sqlite3_get_autocommit(Handle()) == 0) RunKept("ROLLBACK", {}, reason);
    inTransaction_ = false;
}

}  // namespace oledb::sqlite
