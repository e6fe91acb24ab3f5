#include "platform/oledb/providers/sqlite/SqliteDatabase.h"

#include <chrono>
#include <string_view>
#include <thread>

#include "platform/oledb/last_error.h"
#include "platform/oledb/lock_wait.h"
#include "platform/oledb/providers/sqlite/sqlite_call.h"
#include "platform/oledb/providers/sqlite/write_protected.h"
#include "platform/win32/file_place.h"

namespace oledb::sqlite {
namespace {

/// How long a database locked by somebody else is waited for.
constexpr auto kPatience = std::chrono::milliseconds(2000);
constexpr auto kBetweenTries = std::chrono::milliseconds(5);
/// Statements kept prepared; far more than the tables of a project need.
constexpr std::size_t kKeptStatements = 64;

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

int WaitForLock(void* /*data*/, int tries) {
    if (tries * kBetweenTries >= kPatience || !GoesOnWaiting()) return 0;
    std::this_thread::sleep_for(kBetweenTries);
    return 1;
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
    SQLITE_CALL(sqlite3_close_v2, database);
}

HRESULT SqliteDatabase::Failure(int code, const std::string& title) const {
    const std::string message = SQLITE_CALL(sqlite3_errmsg, handle_.get());
    return SetLastError(ResultOf(code, message), title + ": " + message);
}

SqliteDatabase::~SqliteDatabase() {
    if (!files_.DatabaseIsThere()) LeavePlace();
}

/// Its log stands under the name of the file that has taken the place, and would be taken for that
/// file's: what is in it belongs into the file that is open, wherever that is now.
void SqliteDatabase::LeavePlace() {
    SqliteStatement checkpoint;
    if (checkpoint.Prepare(Handle(), "PRAGMA wal_checkpoint(TRUNCATE)") == SQLITE_OK) {
        checkpoint.Step();
    }
}

HRESULT SqliteDatabase::Displaced() {
    if (!files_.DatabaseIsThere()) LeavePlace();
    return SetLastError(E_FAIL, path_ +
                                    ": the database was replaced or deleted while it was open; "
                                    "the suite folder has to be opened again");
}

HRESULT SqliteDatabase::CheckPlace() {
    return files_.DatabaseIsThere() ? S_OK : Displaced();
}

HRESULT SqliteDatabase::Open(const std::string& path) {
    path_ = path;
    // The real path: a link put there by now is no way to another file.
    win32::FilePlace place;
    std::string refusal;
    if (!win32::FindToWrite(path, place, refusal)) {
        return SetLastError(DB_SEC_E_PERMISSIONDENIED, refusal);
    }
    const std::string file = place.Path();
    sqlite3* opened = nullptr;
    int code =
        SQLITE_CALL(sqlite3_open_v2, file.c_str(), &opened,
                    SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) return Failure(code, path);
    SQLITE_CALL(sqlite3_busy_handler, opened, WaitForLock, nullptr);
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
    if (pages == 0) return SetLastError(E_FAIL, path + ": file is empty");
    if (snapshot == nullptr) files_.Remember(file);
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

HRESULT SqliteDatabase::Run(SqliteStatement& statement, const std::vector<Value>& parameters,
                            const std::string& title, const std::function<void()>& row) const {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        statement.Bind(static_cast<int>(i) + 1, parameters[i]);
    }
    int code = SQLITE_ROW;
    while ((code = statement.Step()) == SQLITE_ROW) row();
    const HRESULT result = code == SQLITE_DONE ? S_OK : Failure(code, title);
    statement.Reset();
    return result;
}

HRESULT SqliteDatabase::ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                                  const std::string& title) {
    if (!files_.AllAreThere()) return Displaced();
    if (changes_.size() >= kKeptStatements) changes_.clear();
    const auto [kept, isNew] = changes_.try_emplace(sql);
    if (isNew) {
        const int code = kept->second.Prepare(Handle(), sql);
        if (code != SQLITE_OK) {
            changes_.erase(kept);
            return Failure(code, title);
        }
    }
    const HRESULT result = Run(kept->second, parameters, title, [] {});
    if (FAILED(result)) return result;
    if (SQLITE_CALL(sqlite3_changes, Handle()) == 0) {
        return SetLastError(DB_E_DELETEDROW, title + ": the row does not exist any more");
    }
    return S_OK;
}

}  // namespace oledb::sqlite
