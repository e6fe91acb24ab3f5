#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace console {

/// A SQLite database file. Every operation throws Failure with the file and SQLite's own words.
class SqliteDatabase {
public:
    enum class Mode { Create, ReadWrite, ReadOnly };

    /// `path` is UTF-8. Only Create makes a file that is not there. ReadOnly also reads where
    /// nothing can be written.
    SqliteDatabase(const std::string& path, Mode mode);

    /// Runs statements that give no rows.
    void Execute(const char* sql);

    [[noreturn]] void Fail() const;

private:
    friend class SqliteStatement;
    struct Closer {
        void operator()(sqlite3* handle) const;
    };
    void KeepFromWriting();

    std::string path_;
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement; its database outlives it.
class SqliteStatement {
public:
    SqliteStatement(SqliteDatabase& database, const char* sql);

    /// Parameters count from 1.
    void Bind(int parameter, std::int64_t value);
    void Bind(int parameter, double value);
    void Bind(int parameter, const std::optional<double>& value);
    void Bind(int parameter, const std::string& value);
    /// Runs to the next row; false when there is none.
    bool Step();
    /// Runs a statement without rows and makes it ready for the next parameters.
    void Run();

    /// Columns count from 0. A null is 0, an empty text, or nothing. A number may also be written
    /// as text; an empty one is nothing, any other that is no number throws.
    int Integer(int column) const;
    std::optional<double> Number(int column) const;
    std::string Text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* handle) const;
    };
    void Check(int result) const;
    std::optional<double> NumberInText(int column) const;

    SqliteDatabase& database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

/// Rolls back unless committed.
class SqliteTransaction {
public:
    explicit SqliteTransaction(SqliteDatabase& database);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    void Commit();

private:
    SqliteDatabase& database_;
    bool open_ = true;
};

}  // namespace console
