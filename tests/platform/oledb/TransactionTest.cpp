#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>

#include "platform/oledb/Transaction.h"
#include "platform/oledb/last_error.h"
#include "platform/oledb/lock_wait.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/platform/oledb/TestRowset.h"

// What a session promises of transactions, and what is told of changes that come to nothing.

namespace {

using testing::ElementsAre;

struct Row {
    LONG id;
    char value[9];
    DBSTATUS status;
};

class TransactionTest : public testing::Test {
protected:
    TransactionTest() {
        database_.Run("CREATE TABLE t(id PRIMARY KEY, v); INSERT INTO t VALUES(1,'a'),(2,'b')");
        oledb::SetErrorListener([this](const std::string& text) { told_.push_back(text); });
        oledb::SetLockWaitListener([](std::chrono::milliseconds) { return false; });
    }
    ~TransactionTest() override {
        oledb::SetLockWaitListener(nullptr);
        oledb::SetErrorListener(nullptr);
    }

    HRESULT Start() { return transaction_->StartTransaction(0x1000, 0, nullptr, nullptr); }
    HRESULT Commit() { return transaction_->Commit(FALSE, 0, 0); }
    /// Opens the rows and makes `v` of the first "x", inserts row 3, deletes the second.
    std::vector<HRESULT> ChangeAll() {
        TestRowset set;
        EXPECT_EQ(set.Open(*session_.operator->(), "SELECT id,v FROM t ORDER BY id"), S_OK);
        set.SetBindings({Bind(1, DBTYPE_I4, offsetof(Row, id), 4),
                         Bind(2, DBTYPE_STR, offsetof(Row, value), 9, offsetof(Row, status))});
        Row row{};
        EXPECT_EQ(set.MoveAndRead(&row), S_OK);
        row.value[0] = 'x';
        std::vector<HRESULT> results{set.Set(&row)};
        row.id = 3;
        results.push_back(set.Insert(&row));
        EXPECT_EQ(set.Move(), S_OK);
        results.push_back(set.Delete());
        return results;
    }
    std::string Rows() { return database_.Rows("SELECT id,v FROM t"); }

    SqliteTestDatabase database_;
    // Without a write-ahead log, in which a commit waits for nobody.
    Ref<IDBCreateCommand> session_ =
        (database_.Run("PRAGMA journal_mode=DELETE"), OpenSession(database_.InitString()));
    Ref<ITransactionLocal> transaction_ = session_.As<ITransactionLocal>(IID_ITransactionLocal);
    std::vector<std::string> told_;
};

TEST_F(TransactionTest, EndsWithAllOfItOrNothing) {
    EXPECT_EQ(Commit(), XACT_E_NOTRANSACTION);
    EXPECT_EQ(Start(), S_OK);
    EXPECT_EQ(Start(), XACT_E_XTIONEXISTS);
    EXPECT_THAT(ChangeAll(), ElementsAre(S_OK, S_OK, S_OK));
    EXPECT_EQ(Rows(), "1|a 2|b");
    EXPECT_EQ(transaction_->Abort(nullptr, FALSE, FALSE), S_OK);
    EXPECT_EQ(Rows(), "1|a 2|b");
    EXPECT_EQ(Start(), S_OK);
    EXPECT_THAT(ChangeAll(), ElementsAre(S_OK, S_OK, S_OK));
    EXPECT_EQ(Commit(), S_OK);
    EXPECT_EQ(Rows(), "1|x 3|x");
    EXPECT_EQ(Start(), S_OK);
    EXPECT_EQ(Commit(), S_OK) << "of nothing";
    EXPECT_THAT(told_, ElementsAre());
}

TEST_F(TransactionTest, ARowThatIsRefusedLeavesTheOthers) {
    database_.Run("CREATE TRIGGER n BEFORE INSERT ON t BEGIN SELECT RAISE(ABORT,'no'); END");
    Start();
    EXPECT_THAT(ChangeAll(), ElementsAre(S_OK, DB_E_INTEGRITYVIOLATION, S_OK));
    EXPECT_EQ(Commit(), S_OK);
    EXPECT_EQ(Rows(), "1|x");
    EXPECT_THAT(told_, ElementsAre("t, id=3: v=x: no"));
}

TEST_F(TransactionTest, WhatStandsInTheWayOfAllEndsItAndEveryChangeIsTold) {
    database_.Run("CREATE TRIGGER n BEFORE INSERT ON t BEGIN SELECT RAISE(ROLLBACK,'none'); END");
    Start();
    EXPECT_THAT(ChangeAll(), ElementsAre(S_OK, E_FAIL, E_FAIL));
    EXPECT_EQ(Commit(), XACT_E_ABORTED);
    EXPECT_EQ(Rows(), "1|a 2|b");
    EXPECT_THAT(told_, ElementsAre("t, id=1: v=x: none", "t, id=3: v=x: none",
                                   "t, id=2: row to be deleted: none"));
    told_.clear();

    database_.Run("DROP TRIGGER n");
    database_.Lock();
    Start();
    EXPECT_THAT(ChangeAll(), ElementsAre(DB_E_TIMEOUT, DB_E_TIMEOUT, DB_E_TIMEOUT))
        << "rows are read all the same";
    database_.Unlock();
    EXPECT_EQ(Commit(), XACT_E_ABORTED) << "also when the lock has gone";
    EXPECT_EQ(Rows(), "1|a 2|b");
    EXPECT_THAT(told_,
                ElementsAre("t, id=1: v=x: database is locked", "t, id=3: v=x: database is locked",
                            "t, id=2: row to be deleted: database is locked"));
    told_.clear();

    // A reader is in the way at the very end.
    Start();
    ChangeAll();
    database_.Run("BEGIN; SELECT * FROM t");
    EXPECT_EQ(Commit(), XACT_E_ABORTED);
    database_.Unlock();
    EXPECT_EQ(Rows(), "1|a 2|b");
    EXPECT_EQ(told_.size(), 3U);
    EXPECT_THAT(ChangeAll(), ElementsAre(S_OK, S_OK, S_OK)) << "each by itself again";
}

/// Takes whatever comes.
struct Willing : oledb::Connection {
    std::string Name() const override { return {}; }
    HRESULT Select(std::string_view, std::unique_ptr<oledb::Selection>&) override { return S_OK; }
    HRESULT Prepare(std::string_view, std::unique_ptr<oledb::Statement>&, std::string&) override {
        return S_OK;
    }
    HRESULT Columns(const std::string&, std::vector<std::string>&, std::string&) override {
        return S_OK;
    }
    HRESULT Begin(std::string&) override { return S_OK; }
    HRESULT Commit(std::string&) override { return S_OK; }
    void Rollback() override {}
};

TEST_F(TransactionTest, EndsWithWhateverConcernsMoreThanARow) {
    for (const auto& [result, committed] : {std::pair(DB_E_TIMEOUT, XACT_E_ABORTED),
                                            {DB_SEC_E_PERMISSIONDENIED, XACT_E_ABORTED},
                                            {E_FAIL, XACT_E_ABORTED},
                                            {DB_E_INTEGRITYVIOLATION, S_OK},
                                            {DB_E_DELETEDROW, S_OK}}) {
        oledb::Transaction transaction(std::make_shared<Willing>());
        transaction.Start();
        transaction.Change([] { return "row"; }, [given = result](std::string&) { return given; });
        EXPECT_EQ(transaction.Commit(), committed) << result;
    }
}

}  // namespace
