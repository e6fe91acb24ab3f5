#include "apps/grdx/SqliteDatabase.h"

#include <sqlite3.h>

#include "apps/grdx/Failure.h"
#include "apps/grdx/numbers.h"
#include "platform/oledb/providers/sqlite/busy_wait.h"
#include "platform/oledb/providers/sqlite/log_checkpoint.h"
#include "platform/oledb/providers/sqlite/write_protected.h"
#include "platform/win32/file_place.h"

namespace console {

namespace {
/// Also what is only read is opened for writing, as the last one to close a database can then
/// clear its log away.
int FlagsOf(SqliteDatabase::Mode mode) {
    return SQLITE_OPEN_READWRITE | (mode == SqliteDatabase::Mode::Create ? SQLITE_OPEN_CREATE : 0);
}
}  // namespace

void SqliteDatabase::Closer::operator()(sqlite3* handle) const {
    oledb::sqlite::EmptyLogIfWritten(handle);
    sqlite3_close_v2(handle);
}

SqliteDatabase::SqliteDatabase(const std::string& path, Mode mode) : path_(path) {
    sqlite3* handle = nullptr;
    win32::FilePlace place;
    std::string refusal;
    if (!win32::FindToWrite(path, place, refusal)) {
        throw Failure(refusal);
    }
    const int result = sqlite3_open_v2(place.Path().c_str(), &handle,
                                       FlagsOf(mode) | SQLITE_OPEN_NOFOLLOW, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) {
        Fail();
    }
    sqlite3_busy_handler(handle, oledb::sqlite::WaitForLock, nullptr);
    if (mode == Mode::ReadOnly) {
        KeepFromWriting();
    }
}

void SqliteDatabase::KeepFromWriting() {
    const char* const kLook = "PRAGMA query_only = ON; PRAGMA schema_version";
    using namespace oledb::sqlite;
    sqlite3* snapshot = WouldLeaveLog(path_) ? OpenSnapshot(path_) : nullptr;
    if (snapshot == nullptr) {
        const int result = sqlite3_exec(handle_.get(), kLook, nullptr, nullptr, nullptr);
        snapshot = MayBeWriteProtected(result) ? OpenSnapshot(path_) : nullptr;
        if (snapshot == nullptr && result != SQLITE_OK) {
            Fail();
        }
    }
    if (snapshot != nullptr) {
        handle_.reset(snapshot);
    }
}

void SqliteDatabase::Execute(const char* sql) {
    if (sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail();
    }
}

void SqliteDatabase::Fail() const {
    throw Failure(path_ + ": " + sqlite3_errmsg(handle_.get()));
}

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* handle) const {
    sqlite3_finalize(handle);
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, const char* sql) : database_(database) {
    sqlite3_stmt* handle = nullptr;
    Check(sqlite3_prepare_v2(database.handle_.get(), sql, -1, &handle, nullptr));
    handle_.reset(handle);
}

void SqliteStatement::Check(int result) const {
    if (result != SQLITE_OK) {
        database_.Fail();
    }
}

void SqliteStatement::Bind(int parameter, std::int64_t value) {
    Check(sqlite3_bind_int64(handle_.get(), parameter, value));
}

void SqliteStatement::Bind(int parameter, double value) {
    Check(sqlite3_bind_double(handle_.get(), parameter, value));
}

void SqliteStatement::Bind(int parameter, const std::optional<double>& value) {
    if (value) {
        Bind(parameter, *value);
    } else {
        Check(sqlite3_bind_null(handle_.get(), parameter));
    }
}

void SqliteStatement::Bind(int parameter, const std::string& value) {
    Check(sqlite3_bind_text(handle_.get(), parameter, value.c_str(), static_cast<int>(value.size()),
                            SQLITE_TRANSIENT));
}

bool SqliteStatement::Step() {
    const int result = sqlite3_step(handle_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        database_.Fail();
    }
    return result == SQLITE_ROW;
}

void SqliteStatement::Run() {
    Step();
    Check(sqlite3_reset(handle_.get()));
}

int SqliteStatement::Integer(int column) const {
    return sqlite3_column_int(handle_.get(), column);
}

std::optional<double> SqliteStatement::Number(int column) const {
    switch (sqlite3_column_type(handle_.get(), column)) {
        case SQLITE_NULL:
            return std::nullopt;
        case SQLITE_TEXT:
        case SQLITE_BLOB:
            return NumberInText(column);
        default:
            return sqlite3_column_double(handle_.get(), column);
    }
}

std::optional<double> SqliteStatement::NumberInText(int column) const {
    constexpr const char* kBlanks = " \t\r\n";
    const std::string text = Text(column);
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t length = text.find_last_not_of(kBlanks) - first + 1;
    const std::optional<double> number = ParseNumber(std::string_view(text).substr(first, length));
    if (!number) {
        throw Failure(database_.path_ + ": column " + sqlite3_column_name(handle_.get(), column) +
                      ": \"" + text + "\" is no number");
    }
    return number;
}

std::string SqliteStatement::Text(int column) const {
    const unsigned char* text = sqlite3_column_text(handle_.get(), column);
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database) : database_(database) {
    database_.Execute("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
    if (open_) {
        try {
            database_.Execute("ROLLBACK");
        } catch (const Failure&) {  // SQLite has rolled back by itself
        }
    }
}

void SqliteTransaction::Commit() {
    database_.Execute("COMMIT");
    open_ = false;
}

}  // namespace console
