#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "tests/platform/oledb/TestDatabase.h"
#include "tests/platform/win32/ScratchFolder.h"

/// An SQLite file, read and written by the library itself.
class SqliteTestDatabase : public TestDatabase {
public:
    SqliteTestDatabase() : SqliteTestDatabase(nullptr) {}
    /// In a folder of its own, or as the file given. A new one has a write-ahead log.
    explicit SqliteTestDatabase(const char* path) : path_(path ? path : folder_.Path("test.db")) {
        EXPECT_EQ(sqlite3_open(path_.c_str(), &handle_), SQLITE_OK);
        if (Rows("PRAGMA page_count") == "0") Run("PRAGMA journal_mode=WAL");
    }
    ~SqliteTestDatabase() override { sqlite3_close(handle_); }
    SqliteTestDatabase(const SqliteTestDatabase&) = delete;
    SqliteTestDatabase& operator=(const SqliteTestDatabase&) = delete;

    const std::string& Path() const { return path_; }
    std::string InitString() const override { return "Provider=SQLite;Data Source=" + path_; }
    std::vector<std::string> RowList(const std::string& sql) const override {
        std::vector<std::string> rows;
        const auto addRow = [](void* all, int count, char** texts, char**) {
            std::string row;
            for (int i = 0; i < count; ++i) {
                row += std::string(i > 0 ? "|" : "") + (texts[i] != nullptr ? texts[i] : "null");
            }
            static_cast<std::vector<std::string>*>(all)->push_back(row);
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(handle_, sql.c_str(), addRow, &rows, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(handle_);
        return rows;
    }
    void Lock() const override { Run("BEGIN IMMEDIATE"); }

private:
    ScratchFolder folder_;
    std::string path_;
    sqlite3* handle_ = nullptr;
};

/// The same, opened by its ODBC driver.
class OdbcSqliteTestDatabase final : public SqliteTestDatabase {
public:
    std::string InitString() const override {
        return "Provider=MSDASQL;Driver={SQLite3};Timeout=10;Database=" + Path();
    }
};
