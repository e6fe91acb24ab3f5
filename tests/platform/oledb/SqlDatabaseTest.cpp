#include "platform/oledb/SqlDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/oledb/last_error.h"
#include "platform/oledb/lock_wait.h"
#include "platform/win32/Failure.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"

namespace {

using oledb::Access;
using oledb::SqlDatabase;
using oledb::SqlStatement;
using oledb::SqlTransaction;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

/// What a request that must fail says; the listener of the row sets' failures hears nothing of it.
std::string FailureOf(const std::function<void()>& request) {
    std::string heard;
    oledb::SetErrorListener([&](const std::string& text) { heard += text; });
    std::string said = "nothing";
    try {
        request();
    } catch (const win32::Failure& failure) {
        said = failure.what();
    }
    oledb::SetErrorListener(nullptr);
    EXPECT_EQ(heard, "");
    return said;
}

class SqlDatabaseTest : public testing::Test {
protected:
    SqlDatabaseTest() {
        file_.Run("CREATE TABLE t(i INTEGER, r REAL, s TEXT); INSERT INTO t VALUES(1, 0.1, 'a')");
    }
    std::string Rows() const { return file_.Rows("SELECT * FROM t"); }

    SqliteTestDatabase file_;
};

TEST_F(SqlDatabaseTest, ValuesAreWrittenAndReadBack) {
    SqlDatabase database(file_.InitString(), Access::Change);
    SqlStatement insert(database, "INSERT INTO t VALUES(?, ?, ?)");
    insert.Bind(1, std::int64_t{1} << 40);
    insert.Bind(2, 161.6);
    insert.Bind(3, "钻 7");
    EXPECT_EQ(insert.Run(), 1);
    insert.Bind(1, 5);
    insert.BindNull(3);
    EXPECT_EQ(insert.Run(), 1) << "what was bound stays";
    insert.Bind(2, std::optional<double>());
    insert.Bind(3, " 2.5 ");
    insert.Run();
    EXPECT_EQ(Rows(), "1|0.1|a 1099511627776|161.6|钻 7 5|161.6|null 5|null| 2.5 ");

    SqlStatement row(database, "SELECT i, r, s FROM t WHERE i <> ? ORDER BY rowid");
    row.Bind(1, 1);
    ASSERT_TRUE(row.Step());
    EXPECT_EQ(row.Text(0) + row.Text(1) + row.Text(2), "1099511627776161.6钻 7");
    EXPECT_THAT(FailureOf([&] { row.Integer(0); }), EndsWith("no whole number"));
    EXPECT_THAT(FailureOf([&] { row.Number(2); }), EndsWith("column s: \"钻 7\" is no number"));
    ASSERT_TRUE(row.Step());
    EXPECT_EQ(row.Integer(0), 5);
    EXPECT_TRUE(row.IsNull(2));
    EXPECT_EQ(row.Number(2), std::nullopt);
    ASSERT_TRUE(row.Step());
    EXPECT_EQ(row.Number(2), 2.5);
    EXPECT_FALSE(row.Step());
    row.Bind(1, 5);
    ASSERT_TRUE(row.Step()) << "from the start, with the new value";
    EXPECT_EQ(row.Integer(0), 1);
    EXPECT_THAT(database.Columns("T"), ElementsAre("i", "r", "s"));
    EXPECT_TRUE(database.Columns("u").empty());
}

TEST_F(SqlDatabaseTest, ATransactionIsWrittenAsAWholeOrNotAtAll) {
    const std::string before = Rows();
    SqlDatabase database(file_.InitString(), Access::Change);
    for (const bool commit : {false, true}) {
        SqlTransaction transaction(database);
        database.Execute("UPDATE t SET i = i + 1");
        database.Execute("DELETE FROM t WHERE s = 'b'");
        EXPECT_EQ(Rows(), before);
        if (commit) transaction.Commit();
    }
    EXPECT_EQ(Rows(), "2|0.1|a");

    file_.Lock();
    std::string waited;
    oledb::SetLockWaitListener([&](auto) { return (waited += '.').size() < 3; });
    EXPECT_THAT(FailureOf([&] { SqlTransaction{database}; }),
                EndsWith("test.db: database is locked"));
    oledb::SetLockWaitListener(nullptr);
    EXPECT_EQ(waited, "...");
    file_.Unlock();
    SqlTransaction{database}.Commit();
}

TEST_F(SqlDatabaseTest, WhatFailsSaysWhereAndWhy) {
    SqlDatabase database(file_.InitString(), Access::Change);
    SqlDatabase reader(file_.InitString(), Access::Read);
    const std::string missing = "Provider=SQLite;Data Source=" + file_.Path() + ".other";
    const struct {
        const char* said;
        std::function<void()> request;
    } cases[] = {
        {"test.db: no such table: u", [&] { SqlStatement(database, "SELECT 1 FROM u"); }},
        {"test.db: more than one statement, or none: DELETE FROM t; SELECT 1",
         [&] { database.Execute("DELETE FROM t; SELECT 1"); }},
        {"more than one statement, or none: ", [&] { database.Execute(" "); }},
        {"has 1 parameters, and 0 values were given", [&] { database.Execute("SELECT ?"); }},
        {"test.db: attempt to write a readonly database", [&] { reader.Execute("DELETE FROM t"); }},
        {"no provider \"Other\"", [] { SqlDatabase("Provider=Other", Access::Read); }},
        {"no Provider is named", [] { SqlDatabase("", Access::Read); }},
        {"unable to open database file", [&] { SqlDatabase(missing, Access::Change); }},
        {"is there already", [&] { SqlDatabase(file_.InitString(), Access::Create); }},
    };
    for (const auto& [said, request] : cases) {
        EXPECT_THAT(FailureOf(request), HasSubstr(said));
    }
    EXPECT_EQ(Rows(), "1|0.1|a");
    SqlDatabase(missing, Access::Create).Execute("CREATE TABLE made(x)");
    EXPECT_THAT(SqlDatabase(missing, Access::Read).Columns("made"), ElementsAre("x"));
}

}  // namespace
