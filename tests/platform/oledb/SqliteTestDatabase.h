#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <utility>

#include "tests/platform/oledb/TestDatabase.h"

/// A folder that goes away with the test.
class TestFolder {
public:
    TestFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "grdx-db-XXXXXX").string();
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        path_ = name;
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

/// An SQLite file, read and written by the library itself.
class SqliteTestDatabase : public TestDatabase {
public:
    SqliteTestDatabase() : SqliteTestDatabase(nullptr) {}
    /// In a folder of its own, or as the file given.
    explicit SqliteTestDatabase(const char* path) : path_(path ? path : folder_.File("test.db")) {
        EXPECT_EQ(sqlite3_open(path_.c_str(), &handle_), SQLITE_OK);
        Run("PRAGMA journal_mode=WAL");
    }
    ~SqliteTestDatabase() override { sqlite3_close(handle_); }
    SqliteTestDatabase(const SqliteTestDatabase&) = delete;
    SqliteTestDatabase& operator=(const SqliteTestDatabase&) = delete;

    const std::string& Path() const { return path_; }
    std::string InitString() const override { return "Provider=SQLite;Data Source=" + path_; }
    void Run(const std::string& sql) override {
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK)
            << sql << ": " << (error ? error : "");
        sqlite3_free(error);
    }
    std::string Rows(const std::string& select) override {
        std::string rows;
        const auto append = [](void* all, int count, char** texts, char**) {
            auto& out = *static_cast<std::string*>(all);
            for (int i = 0; i < count; ++i) {
                out += i > 0 ? "|" : out.empty() ? "" : " ";
                out += texts[i] ? texts[i] : "null";
            }
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(handle_, select.c_str(), append, &rows, nullptr), SQLITE_OK)
            << select << ": " << sqlite3_errmsg(handle_);
        return rows;
    }
    void Lock() override { Run("BEGIN IMMEDIATE"); }
    void Unlock() override { Run("ROLLBACK"); }

private:
    TestFolder folder_;
    std::string path_;
    sqlite3* handle_ = nullptr;
};
