#pragma once

#include <string>
#include <vector>

/// A database as others than the layer see it.
class TestDatabase {
public:
    virtual ~TestDatabase() = default;
    /// By which the layer opens it; UTF-8.
    virtual std::string InitString() const = 0;
    /// The rows that statements give, columns joined by "|"; a null is "null". Fails the test when
    /// a statement is wrong.
    virtual std::vector<std::string> RowList(const std::string& sql) const = 0;
    /// Keeps everybody else from writing to the table t until Unlock.
    virtual void Lock() const = 0;
    virtual void Unlock() const { Run("ROLLBACK"); }
    /// Ends the connections of all others, when the database has such things.
    virtual bool CutConnections() const { return false; }
    /// SQL with the types and literals that the database has in place of those of the tests.
    virtual std::string Native(const std::string& sql) const { return sql; }

    void Run(const std::string& sql) const { RowList(sql); }
    /// The rows in one line, joined by blanks.
    std::string Rows(const std::string& select) const {
        std::string line;
        for (const std::string& row : RowList(select)) {
            line += (line.empty() ? "" : " ") + row;
        }
        return line;
    }
};
