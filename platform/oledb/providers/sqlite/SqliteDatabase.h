#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/Value.h"
#include "platform/oledb/oledb_errors.h"
#include "platform/oledb/providers/sqlite/OpenFiles.h"
#include "platform/oledb/providers/sqlite/SqliteStatement.h"

struct sqlite3;

namespace oledb::sqlite {

/// An open database file.
class SqliteDatabase {
public:
    SqliteDatabase() = default;
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    /// Opens the file (UTF-8 path of the file system), in the journal mode that it has. Where
    /// nothing can be written it is read as it stands now, and changes are refused. A file that is
    /// missing, empty or no database is refused; Create makes one, with a write-ahead log, and
    /// refuses a file that holds anything.
    HRESULT Open(const std::string& path, Access access);

    const std::string& Path() const { return path_; }
    sqlite3* Handle() const { return handle_.get(); }
    /// E_FAIL, told, when another file has taken the place of the one that is open, or none.
    HRESULT CheckPlace();
    /// Whether a statement may be run now, which reads or changes: E_FAIL when others do not find
    /// these files by their names any more.
    HRESULT CheckFor(bool reading, std::string& reason);
    /// To be told once a statement of a program's own has made its changes; gives their number.
    std::int64_t NoteChanges();
    /// What a code stands for, and the library's words for it.
    HRESULT Reason(int code, std::string& reason) const;
    /// Runs a statement that changes one row and has been run before by the same text, if so, as
    /// that prepared statement. DB_E_DELETEDROW when no row was changed. Nothing is changed once
    /// others do not find these files by their names any more. The failures of this and of the
    /// next three are those of changes (Provider.h).
    HRESULT ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                      std::string& reason);
    HRESULT Begin(std::string& reason);
    HRESULT Commit(std::string& reason);
    void Rollback();
    /// Runs a select from front to back; `row` is called with each row stepped to.
    HRESULT Run(SqliteStatement& statement, const std::vector<Value>& parameters,
                const std::string& title, const std::function<void()>& row) const;
    /// The same, with the bare reason of a failure.
    HRESULT Run(SqliteStatement& statement, const std::vector<Value>& parameters,
                const std::function<void()>& row, std::string& reason) const;
    /// Notes the library's error for `title` and gives the code it stands for.
    HRESULT Failure(int code, const std::string& title) const;

private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    int CountPages(std::int64_t& pages);
    HRESULT SetUp(Access access);
    void SpareWaits();

    HRESULT CheckFiles(std::string& reason);
    void LeavePlace();
    /// Runs a statement to its end, prepared as it was for the same text before.
    HRESULT RunKept(const std::string& sql, const std::vector<Value>& parameters,
                    std::string& reason);
    static int StepThrough(SqliteStatement& statement, const std::vector<Value>& parameters,
                           const std::function<void()>& row);

    std::string path_;
    OpenFiles files_;
    bool inTransaction_ = false;
    std::unique_ptr<sqlite3, Close> handle_;
    std::unordered_map<std::string, SqliteStatement> changes_;  ///< by their text
};

/// A name in double quotes, for any place where SQL takes a name.
std::string QuotedName(const std::string& name);

}  // namespace oledb::sqlite
