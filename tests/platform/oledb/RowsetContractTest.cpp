#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>

#include "platform/win32/gbk_literal.h"
#include "tests/platform/oledb/PostgresTestDatabase.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/platform/oledb/TestRowset.h"

// What a row set promises, whichever database it is.

namespace {

struct Pair {
    LONG id;
    float value;
    DBSTATUS valueStatus;
    char text[9];
    DBSTATUS textStatus;
};
const std::vector<DBBINDING> kPair{
    Bind(1, DBTYPE_I4, offsetof(Pair, id), 4),
    Bind(2, DBTYPE_R4, offsetof(Pair, value), 4, offsetof(Pair, valueStatus)),
    Bind(3, DBTYPE_STR, offsetof(Pair, text), 9, offsetof(Pair, textStatus))};

struct Kind {
    const char* name;
    std::unique_ptr<TestDatabase> (*make)();
};
template <class Database>
std::unique_ptr<TestDatabase> Make() {
    return std::make_unique<Database>();
}

class RowsetContract : public testing::TestWithParam<Kind> {
protected:
    HRESULT Open(TestRowset& set, const std::string& sql) {
        return set.Open(*session_.operator->(), sql);
    }
    /// `set_` over three rows of `id`, `value`, `text`, the second with nulls.
    void OpenPairs(const std::string& sql = "SELECT id,value,text FROM t ORDER BY id",
                   const std::vector<DBBINDING>& bindings = kPair) {
        Run("CREATE TABLE t(note TEXT, id " + idType_ + ", value REAL, text TEXT)");
        Run("INSERT INTO t VALUES('a',1,161.6,'one'),('b',2,NULL,NULL),('c',3,0.3,'three')");
        ASSERT_EQ(Open(set_, sql), S_OK) << oledb::LastErrorText();
        ASSERT_EQ(set_.SetBindings(bindings), S_OK);
    }
    /// The same, with the first row read into `pair_`.
    void OpenFirstPair() {
        OpenPairs();
        ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    }
    /// A row set over one column of one row, which is of that type and holds that literal.
    void OpenValue(TestRowset& set, const std::string& type, const std::string& literal) {
        Run("DROP TABLE IF EXISTS v; CREATE TABLE v(x " + type + ")");
        Run("INSERT INTO v VALUES(" + literal + ")");
        ASSERT_EQ(Open(set, "SELECT x FROM v"), S_OK);
    }
    void Run(const std::string& sql) { database_->Run(database_->Native(sql)); }
    std::string Rows(const std::string& select) { return database_->Rows(select); }
    std::string Pairs() { return Rows("SELECT * FROM t ORDER BY id, value"); }

    std::string idType_ = "INTEGER";
    const std::unique_ptr<TestDatabase> database_ = GetParam().make();
    Ref<IDBCreateCommand> session_ = OpenSession(database_->InitString());
    TestRowset set_;
    Pair pair_{};
};

INSTANTIATE_TEST_SUITE_P(Databases, RowsetContract,
                         testing::Values(Kind{"Sqlite", Make<SqliteTestDatabase>},
                                         Kind{"Postgres", Make<PostgresTestDatabase>},
                                         Kind{"SqliteByOdbc", Make<OdbcSqliteTestDatabase>}),
                         [](const auto& one) { return one.param.name; });

constexpr const char* kThree = "a|1|161.6|one b|2|null|null c|3|0.3|three";

TEST_P(RowsetContract, NumbersAreConvertedOrRefused) {
    struct Case {
        const char* stored;
        const char* column;  ///< the column's type
        DBTYPE type;
        HRESULT result;  ///< of binding the column
        DBSTATUS status;
        double value;
    };
    constexpr HRESULT kBad = DB_E_ERRORSOCCURRED;
    const Case cases[] = {
        {"161.6", "REAL", DBTYPE_R4, S_OK, DBSTATUS_S_OK, 161.6F},
        {"7", "INTEGER", DBTYPE_R4, S_OK, DBSTATUS_S_OK, 7},
        {"' 0.075 '", "TEXT", DBTYPE_R4, S_OK, DBSTATUS_S_OK, 0.075F},
        {"'+1e2'", "TEXT", DBTYPE_R4, S_OK, DBSTATUS_S_OK, 100},
        {"'12mm'", "TEXT", DBTYPE_R4, kBad, 0, 0},
        {"''", "TEXT", DBTYPE_R4, S_OK, DBSTATUS_S_ISNULL, 0},
        {"' '", "TEXT", DBTYPE_I4, S_OK, DBSTATUS_S_ISNULL, 0},
        {"x'31'", "BLOB", DBTYPE_R4, kBad, 0, 0},
        {"3.4028235677973366e38", "DOUBLE PRECISION", DBTYPE_R4, kBad, 0,
         0},  // half a step beyond the largest
        {"9e999", "DOUBLE PRECISION", DBTYPE_R4, S_OK, DBSTATUS_S_OK,
         std::numeric_limits<double>::infinity()},
        {"-3.4028235e38", "REAL", DBTYPE_R4, S_OK, DBSTATUS_S_OK,
         -std::numeric_limits<float>::max()},
        {"2147483647", "INTEGER", DBTYPE_I4, S_OK, DBSTATUS_S_OK, 2147483647},
        {"2147483648", "BIGINT", DBTYPE_I4, kBad, 0, 0},
        {"1e30", "DOUBLE PRECISION", DBTYPE_I4, kBad, 0, 0},
        {"'12'", "VARCHAR(9)", DBTYPE_I4, S_OK, DBSTATUS_S_OK, 12},
        {"2.5000", "NUMERIC(12,4)", DBTYPE_R4, S_OK, DBSTATUS_S_OK, 2.5},
        {"3.0", "REAL", DBTYPE_I4, S_OK, DBSTATUS_S_OK, 3},
        {"-3.7", "DOUBLE PRECISION", DBTYPE_I4, S_OK, DBSTATUS_S_TRUNCATED, -3},
        {"-32768", "SMALLINT", DBTYPE_I2, S_OK, DBSTATUS_S_OK, -32768},
        {"32768", "INTEGER", DBTYPE_I2, kBad, 0, 0},
        {"255", "SMALLINT", DBTYPE_UI1, S_OK, DBSTATUS_S_OK, 255},
        {"-1", "INTEGER", DBTYPE_UI1, kBad, 0, 0},
        {"NULL", "INTEGER", DBTYPE_UI1, S_OK, DBSTATUS_S_ISNULL, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.stored) + " as type " + std::to_string(c.type));
        struct {
            alignas(8) std::byte value[8];
            DBSTATUS status;
        } record{};
        TestRowset set;
        OpenValue(set, c.column, c.stored);
        ASSERT_EQ(set.SetBindings({Bind(1, c.type, 0, 8, 8)}), c.result);
        if (FAILED(c.result)) continue;
        EXPECT_EQ(set.MoveAndRead(&record), S_OK);
        EXPECT_EQ(record.status, c.status);
        const auto as = [&]<class T>(T number) {
            std::memcpy(&number, record.value, sizeof(T));
            return static_cast<double>(number);
        };
        const double value = c.type == DBTYPE_R4   ? as(0.0F)
                             : c.type == DBTYPE_I4 ? as(LONG{0})
                             : c.type == DBTYPE_I2 ? as(SHORT{0})
                                                   : as(BYTE{0});
        EXPECT_EQ(value, c.value);
    }
}

TEST_P(RowsetContract, TextsAreConvertedAndCutAtWholeCharacters) {
    // "淺" is 9C 5C in GBK: the trail byte is a backslash. "𠀀" is a pair of UTF-16 units and no
    // character of GBK.
    struct Case {
        const char* stored;
        const char* narrow;  ///< UTF-8 of what arrives in 6 bytes of GBK
        DBSTATUS narrowStatus;
        const char* wide;  ///< UTF-8 of what arrives in 3 units and a terminator
        DBSTATUS wideStatus;
    };
    const Case cases[] = {
        {"''", "", DBSTATUS_S_OK, "", DBSTATUS_S_OK},
        {"'pad'", "pad", DBSTATUS_S_OK, "pad", DBSTATUS_S_OK},
        {"'ZK3'", "ZK3", DBSTATUS_S_OK, "ZK3", DBSTATUS_S_OK},
        {"'ZK-33'", "ZK-33", DBSTATUS_S_OK, "ZK-", DBSTATUS_S_TRUNCATED},
        {"'ZK-333'", "ZK-33", DBSTATUS_S_TRUNCATED, "ZK-", DBSTATUS_S_TRUNCATED},
        {"'筛分'", "筛分", DBSTATUS_S_OK, "筛分", DBSTATUS_S_OK},
        {"'筛分法'", "筛分", DBSTATUS_S_TRUNCATED, "筛分法", DBSTATUS_S_OK},
        {"'a淺淺b'", "a淺淺", DBSTATUS_S_TRUNCATED, "a淺淺", DBSTATUS_S_TRUNCATED},
        {"'ab𠀀'", "ab?", DBSTATUS_S_OK, "ab", DBSTATUS_S_TRUNCATED},
        {"12", "12", DBSTATUS_S_OK, "12", DBSTATUS_S_OK},
        {"0.5", "0.5", DBSTATUS_S_OK, "0.5", DBSTATUS_S_OK},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.stored);
        struct Record {
            char16_t wide[4];
            DBSTATUS wideStatus;
            DBSTATUS narrowStatus;
            char narrow[6];
            char bare[6];
            char behind;
        } record{};
        record.behind = '#';
        TestRowset set;
        OpenValue(set, c.stored[1] == 'p' ? "CHAR(5)" : "TEXT", c.stored);
        ASSERT_EQ(
            set.SetBindings(
                {Bind(1, DBTYPE_WSTR, offsetof(Record, wide), 8, offsetof(Record, wideStatus)),
                 Bind(1, DBTYPE_STR, offsetof(Record, narrow), 6, offsetof(Record, narrowStatus)),
                 Bind(1, DBTYPE_STR, offsetof(Record, bare), 6)}),
            S_OK);
        EXPECT_EQ(set.MoveAndRead(&record), S_OK);
        EXPECT_EQ(win32::Utf8FromUtf16(record.wide), c.wide);
        EXPECT_EQ(record.wideStatus, c.wideStatus);
        EXPECT_EQ(win32::Utf8FromGbk(record.narrow), c.narrow);
        EXPECT_EQ(record.narrowStatus, c.narrowStatus);
        EXPECT_STREQ(record.bare, record.narrow);
        EXPECT_EQ(record.behind, '#');
    }
}

TEST_P(RowsetContract, ACellThatCannotBecomeItsTypeFailsTheBindingAndIsNamed) {
    Run("CREATE TABLE t(id INTEGER, name TEXT, value TEXT, text BLOB)");
    Run("INSERT INTO t VALUES(1,'a b','2',NULL),(2,'b','12mm',x'00')");
    TestRowset set;
    ASSERT_EQ(Open(set, "SELECT id,name,value,text FROM t ORDER BY id"), S_OK);
    const std::vector<DBBINDING> keys{Bind(1, DBTYPE_I4, 0, 4), Bind(2, DBTYPE_STR, 4, 9)};
    const auto faultOf = [&](DBORDINAL column, DBTYPE type) {
        std::vector<DBBINDING> bindings = keys;
        bindings.push_back(Bind(column, type, 16, 8, 24));
        EXPECT_EQ(set.SetBindings(bindings), DB_E_ERRORSOCCURRED);
        return oledb::LastErrorText();
    };
    EXPECT_EQ(faultOf(3, DBTYPE_R4), "t, id=2, name=b: value=12mm: not of the column's type");
    EXPECT_EQ(faultOf(4, DBTYPE_STR),
              "t, id=2, name=b: text=(binary data): not of the column's type");
    Run("UPDATE t SET value='7e+09' WHERE id=1");
    ASSERT_EQ(Open(set, "SELECT id,name,value,text FROM t ORDER BY id"), S_OK);
    EXPECT_EQ(faultOf(3, DBTYPE_I4),
              "t, id=1, name=\"a b\": value=7e+09: out of the range of the column's type");
    if (GetParam().make != Make<SqliteTestDatabase>) return;
    // GBK bytes in a column of texts, which only this database lets in.
    Run("UPDATE t SET text=CAST(x'B7D6' AS TEXT)");
    ASSERT_EQ(Open(set, "SELECT id,name,value,text FROM t ORDER BY id"), S_OK);
    faultOf(4, DBTYPE_WSTR);
}

TEST_P(RowsetContract, NullWithoutStatusFailsItsRowOnly) {
    OpenPairs();
    ASSERT_EQ(set_.SetBindings({kPair[0], Bind(2, DBTYPE_R4, offsetof(Pair, value), 4)}), S_OK);
    EXPECT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(set_.MoveAndRead(&pair_), DB_E_ERRORSOCCURRED);
    EXPECT_NE(oledb::LastErrorText().find("t, id=2, value=null: value=null: a value"),
              std::string::npos)
        << oledb::LastErrorText();
    EXPECT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(pair_.value, 0.3F);
}

TEST_P(RowsetContract, MovesBothWaysAndEndsWithASuccessCode) {
    OpenPairs();
    const auto fetched = [&](DBROWCOUNT count, DBROWOFFSET offset) {
        return set_.Move(count, offset) == S_OK && set_.Read(&pair_) == S_OK ? pair_.id : 0;
    };
    EXPECT_EQ(fetched(1, 0), 1);
    EXPECT_EQ(fetched(1, 1), 3);
    EXPECT_EQ(set_.Move(), DB_S_ENDOFROWSET);
    EXPECT_EQ(set_.Move(), DB_S_ENDOFROWSET);
    EXPECT_EQ(fetched(-1, 0), 3);
    EXPECT_EQ(fetched(-1, -1), 1);
    EXPECT_EQ(set_.Move(-1), DB_S_ENDOFROWSET);
    EXPECT_EQ(set_.rows->RestartPosition(DB_NULL_HCHAPTER), S_OK);
    EXPECT_EQ(fetched(-1, 0), 3) << "backwards from the start begins at the end";
    set_.rows->RestartPosition(DB_NULL_HCHAPTER);
    EXPECT_EQ(set_.Move(1, 4), DB_S_ENDOFROWSET);
    EXPECT_EQ(fetched(1, 0), 1) << "a move out of the rows leaves the position";

    HROW held[3] = {};
    HROW* places = held;
    DBCOUNTITEM obtained = 0;
    set_.rows->RestartPosition(DB_NULL_HCHAPTER);
    EXPECT_EQ(set_.rows->GetNextRows(DB_NULL_HCHAPTER, 0, 3, &obtained, &places), S_OK);
    EXPECT_EQ(set_.rows->GetData(held[0], set_.accessor, &pair_), S_OK);
    EXPECT_EQ(pair_.id, 1) << "rows fetched before stay usable";
    EXPECT_EQ(set_.rows->ReleaseRows(3, held, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(set_.rows->GetData(held[2], set_.accessor, &pair_), DB_E_BADROWHANDLE);
    EXPECT_EQ(set_.rows->ReleaseRows(1, &held[2], nullptr, nullptr, nullptr), DB_E_ERRORSOCCURRED);
}

TEST_P(RowsetContract, AChangeReachesExactlyItsRowAtOnce) {
    OpenPairs("select TEXT, ID, VALUE from T where ID > 0 order by 2;",
              {Bind(1, DBTYPE_STR, offsetof(Pair, text), 9, offsetof(Pair, textStatus)),
               Bind(2, DBTYPE_I4, offsetof(Pair, id), 4),
               Bind(3, DBTYPE_R4, offsetof(Pair, value), 4, offsetof(Pair, valueStatus))});
    Run("INSERT INTO t SELECT * FROM t");  // twins, told apart by nothing
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    pair_.value = 49.999F;
    std::strcpy(pair_.text, "筛分"_gbk);
    EXPECT_EQ(set_.Set(&pair_), S_OK);
    EXPECT_EQ(
        Pairs(),
        "a|1|49.999|筛分 a|1|161.6|one b|2|null|null b|2|null|null c|3|0.3|three c|3|0.3|three");
    Pair again{};
    EXPECT_EQ(set_.Read(&again), S_OK);
    EXPECT_EQ(again.value, 49.999F) << "the row set shows its own changes";
}

TEST_P(RowsetContract, StatusDecidesBetweenNullAndValue) {
    OpenFirstPair();
    pair_.valueStatus = DBSTATUS_S_ISNULL;
    EXPECT_EQ(set_.Set(&pair_), S_OK);
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(pair_.textStatus, DBSTATUS_S_ISNULL);
    pair_.value = 0.0F;
    pair_.valueStatus = DBSTATUS_S_OK;
    EXPECT_EQ(set_.Set(&pair_), S_OK);
    EXPECT_EQ(
        Rows("SELECT note, id FROM t WHERE value = 0 OR id = 1 AND value IS NULL ORDER BY id"),
        "a|1 b|2");
    EXPECT_EQ(set_.Read(&pair_), S_OK);
    EXPECT_EQ(pair_.valueStatus, DBSTATUS_S_OK);
}

TEST_P(RowsetContract, UntouchedColumnsKeepWhatTheBufferCannotHold) {
    Run("CREATE TABLE t(id TEXT, value DOUBLE PRECISION, text TEXT)");
    Run("INSERT INTO t VALUES('7', 123456.123456789, '很长的文字比位置多𠀀')");
    TestRowset set;
    ASSERT_EQ(Open(set, "SELECT id,value,text FROM t"), S_OK);
    ASSERT_EQ(set.SetBindings(kPair), S_OK);
    Pair pair{};
    ASSERT_EQ(set.MoveAndRead(&pair), S_OK);
    EXPECT_EQ(pair.textStatus, DBSTATUS_S_TRUNCATED);
    EXPECT_EQ(set.Set(&pair), S_OK);
    EXPECT_EQ(Rows("SELECT id,value,text FROM t WHERE id='7'"),
              "7|123456.123456789|很长的文字比位置多𠀀");
    pair.id = 8;
    EXPECT_EQ(set.Set(&pair), S_OK);
    EXPECT_EQ(Rows("SELECT id,value,text FROM t"), "8|123456.123456789|很长的文字比位置多𠀀");
}

TEST_P(RowsetContract, FloatsAreKeptAsTheirShortestDecimals) {
    OpenPairs();
    ASSERT_EQ(set_.Move(), S_OK);
    for (const float value :
         {161.6F, 0.1F, 1.0F / 3.0F, 1e-7F, 16777216.0F, -2.5F, std::numeric_limits<float>::max(),
          std::numeric_limits<float>::denorm_min()}) {
        Pair pair{};
        ASSERT_EQ(set_.Read(&pair), S_OK);
        pair.value = value;
        ASSERT_EQ(set_.Set(&pair), S_OK);
        pair.value = 0.0F;
        ASSERT_EQ(set_.Read(&pair), S_OK);
        EXPECT_EQ(pair.value, value);
        if (value == 161.6F) {
            EXPECT_EQ(Rows("SELECT value FROM t WHERE id=1"), "161.6");
        }
    }
}

TEST_P(RowsetContract, RowsAreInsertedAndDeleted) {
    OpenPairs();
    pair_ = {4, 2.5F, DBSTATUS_S_OK, "four", DBSTATUS_S_ISNULL};
    EXPECT_EQ(set_.Insert(&pair_), S_OK);
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(set_.Delete(), S_OK);
    EXPECT_EQ(set_.Read(&pair_), DB_E_DELETEDROW);
    EXPECT_EQ(set_.Set(&pair_), DB_E_DELETEDROW);
    EXPECT_EQ(set_.Delete(), DB_E_DELETEDROW);
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(pair_.id, 2);
    set_.rows->RestartPosition(DB_NULL_HCHAPTER);
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(pair_.id, 2) << "a deleted row is passed over";
    ASSERT_EQ(set_.Move(), S_OK);
    EXPECT_EQ(set_.Move(), DB_S_ENDOFROWSET) << "an inserted row shows in the next row set";
    EXPECT_EQ(Pairs(), "b|2|null|null c|3|0.3|three null|4|2.5|null");
}

TEST_P(RowsetContract, AFailedChangeLeavesTheRow) {
    OpenPairs();
    Run("CREATE UNIQUE INDEX one ON t(id)");
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    pair_.id = 3;
    EXPECT_EQ(set_.Set(&pair_), DB_E_INTEGRITYVIOLATION);
    EXPECT_EQ(set_.Insert(&pair_), DB_E_INTEGRITYVIOLATION);
    pair_.id = 9;
    pair_.value = std::nanf("");
    EXPECT_EQ(set_.Set(&pair_), DB_E_ERRORSOCCURRED);
    EXPECT_EQ(pair_.valueStatus, DBSTATUS_E_CANTCONVERTVALUE);
    pair_.value = 1.0F;
    pair_.valueStatus = 99;
    EXPECT_EQ(set_.Set(&pair_), DB_E_ERRORSOCCURRED);
    EXPECT_EQ(Pairs(), kThree);

    pair_.valueStatus = DBSTATUS_S_OK;
    database_->Lock();
    EXPECT_EQ(set_.Set(&pair_), DB_E_TIMEOUT) << "locked by somebody else";
    EXPECT_NE(oledb::LastErrorText().find("locked"), std::string::npos);
    database_->Unlock();
    EXPECT_EQ(Pairs(), kThree);
    EXPECT_EQ(set_.Set(&pair_), S_OK) << "and works again afterwards";

    Run("DELETE FROM t");
    pair_.value = 2.0F;
    EXPECT_EQ(set_.Set(&pair_), DB_E_DELETEDROW);
    EXPECT_EQ(set_.Delete(), DB_E_DELETEDROW);
    EXPECT_EQ(Pairs(), "");
}

TEST_P(RowsetContract, ARowThatSomebodyElseChangedIsToldAndStays) {
    OpenFirstPair();  // of a table without a key
    Run("UPDATE t SET value=5.5 WHERE id=1");
    std::strcpy(pair_.text, "mine");
    EXPECT_TRUE(FAILED(set_.Set(&pair_)));
    EXPECT_NE(oledb::LastErrorText().find("somebody else"), std::string::npos);
    EXPECT_EQ(Rows("SELECT value FROM t WHERE id=1"), "5.5");
    Run("DROP TABLE t");
    set_ = {};
    session_ = OpenSession(database_->InitString());
    idType_ = "INTEGER PRIMARY KEY";
    OpenFirstPair();
    Run("UPDATE t SET value=5.5 WHERE id=1");
    std::strcpy(pair_.text, "mine");
    EXPECT_EQ(set_.Set(&pair_), DB_E_CONCURRENCYVIOLATION);
    EXPECT_EQ(oledb::LastErrorText(),
              "t, id=1: text=mine: somebody else has changed the row "
              "meanwhile: value was 161.6, is 5.5");
    EXPECT_EQ(set_.Delete(), DB_E_CONCURRENCYVIOLATION);
    EXPECT_EQ(Pairs(), "a|1|5.5|one b|2|null|null c|3|0.3|three");
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK);
    Run("UPDATE t SET text='theirs' WHERE id=2");
    EXPECT_EQ(set_.Delete(), DB_E_CONCURRENCYVIOLATION);
    EXPECT_NE(oledb::LastErrorText().find("text was null, is theirs"), std::string::npos);
}

TEST_P(RowsetContract, ALostConnectionIsMadeAgainBetweenStatements) {
    OpenPairs();
    if (!database_->CutConnections()) return;
    ASSERT_EQ(set_.MoveAndRead(&pair_), S_OK) << "of rows that are at hand";
    std::strcpy(pair_.text, "x");
    EXPECT_EQ(set_.Set(&pair_), S_OK) << oledb::LastErrorText();
    database_->CutConnections();
    TestRowset again;
    ASSERT_EQ(Open(again, "SELECT id,value,text FROM t ORDER BY id"), S_OK)
        << oledb::LastErrorText();
    const auto transaction = session_.As<ITransactionLocal>(IID_ITransactionLocal);
    transaction->StartTransaction(ISOLATIONLEVEL_SERIALIZABLE, 0, nullptr, nullptr);
    pair_.id = 7;
    EXPECT_EQ(set_.Set(&pair_), S_OK);
    database_->CutConnections();
    pair_.id = 8;
    EXPECT_EQ(set_.Set(&pair_), E_FAIL) << "within a transaction nothing is done by halves";
    EXPECT_EQ(transaction->Commit(FALSE, 0, 0), XACT_E_ABORTED);
    EXPECT_EQ(Pairs(), "a|1|161.6|x b|2|null|null c|3|0.3|three");
    ASSERT_EQ(Open(again, "SELECT id,value,text FROM t ORDER BY id"), S_OK);
}

TEST_P(RowsetContract, AWalkHoldsNoLock) {
    OpenFirstPair();
    Run("DROP TABLE t");
    EXPECT_EQ(set_.MoveAndRead(&pair_), S_OK);
    EXPECT_EQ(pair_.id, 2);
}

TEST_P(RowsetContract, ChangesNeedToBeAskedFor) {
    Run("CREATE TABLE t(id INTEGER, value REAL, text TEXT); INSERT INTO t VALUES(1, 2, 'x')");
    const std::string sql = "SELECT id,value,text FROM t";
    TestRowset reading;
    ASSERT_EQ(reading.Open(*session_.operator->(), sql, {}), S_OK);
    EXPECT_FALSE(reading.change);
    EXPECT_FALSE(reading.rows.As<IUnknown>(IID_IRowsetUpdate)) << "no deferred mode";

    TestRowset changing;
    ASSERT_EQ(changing.Open(*session_.operator->(), sql,
                            {MakeProperty(DBPROP_UPDATABILITY, VT_I4, DBPROPVAL_UP_CHANGE)}),
              S_OK);
    ASSERT_EQ(changing.SetBindings(kPair), S_OK);
    Pair pair{};
    ASSERT_EQ(changing.MoveAndRead(&pair), S_OK);
    EXPECT_EQ(changing.Insert(&pair), DB_E_NOTSUPPORTED);
    EXPECT_EQ(changing.Delete(), DB_E_NOTSUPPORTED);
    pair.id = 5;
    EXPECT_EQ(changing.Set(&pair), S_OK);
    EXPECT_EQ(Rows("SELECT id FROM t"), "5");
}

TEST_P(RowsetContract, PropertiesAreGrantedOrRefused) {
    constexpr DBPROPID kUnknown = 0x7777;
    DBPROP oneColumn = MakeProperty(DBPROP_CANHOLDROWS, VT_BOOL, VARIANT_TRUE);
    oneColumn.colid.eKind = 2;
    const std::tuple<const char*, DBPROP, HRESULT, DBPROPSTATUS> cases[] = {
        {"change only", MakeProperty(DBPROP_UPDATABILITY, VT_I4, 1), S_OK, DBPROPSTATUS_OK},
        {"no holding", MakeProperty(DBPROP_CANHOLDROWS, VT_BOOL, VARIANT_FALSE), S_OK,
         DBPROPSTATUS_OK},
        {"a fourth kind of change", MakeProperty(DBPROP_UPDATABILITY, VT_I4, 8),
         DB_E_ERRORSOCCURRED, DBPROPSTATUS_BADVALUE},
        {"a number as flag", MakeProperty(DBPROP_IRowsetChange, VT_I4, 1), DB_E_ERRORSOCCURRED,
         DBPROPSTATUS_BADVALUE},
        {"deferred mode", MakeProperty(DBPROP_IRowsetUpdate, VT_BOOL, VARIANT_TRUE),
         DB_E_ERRORSOCCURRED, DBPROPSTATUS_NOTSUPPORTED},
        {"an unknown one", MakeProperty(kUnknown, VT_BOOL, VARIANT_TRUE), DB_E_ERRORSOCCURRED,
         DBPROPSTATUS_NOTSUPPORTED},
        {"an unknown one, if possible",
         MakeProperty(kUnknown, VT_BOOL, VARIANT_TRUE, DBPROPOPTIONS_OPTIONAL), DB_S_ERRORSOCCURRED,
         DBPROPSTATUS_NOTSUPPORTED},
        {"for one column", oneColumn, DB_E_ERRORSOCCURRED, DBPROPSTATUS_NOTSUPPORTED},
    };
    for (const auto& [what, asked, result, status] : cases) {
        SCOPED_TRACE(what);
        IUnknown* made = nullptr;
        ASSERT_EQ(session_->CreateCommand(nullptr, IID_ICommandProperties, &made), S_OK);
        const Ref<ICommandProperties> command(static_cast<ICommandProperties*>(made));
        DBPROP property = asked;
        DBPROPSET set{&property, 1, DBPROPSET_ROWSET};
        EXPECT_EQ(command->SetProperties(1, &set), result);
        EXPECT_EQ(property.dwStatus, status);
    }
}

TEST_P(RowsetContract, OneSelectAndNothingElseRuns) {
    Run("CREATE TABLE t(id INTEGER, text TEXT); INSERT INTO t VALUES(1,'it''s; ok')");
    const std::pair<const char*, HRESULT> cases[] = {
        {"SELECT id FROM t;", S_OK},
        {"  select id from t  ;  \n", S_OK},
        {"SELECT id FROM t WHERE text='it''s; ok'", S_OK},
        {"SELECT id FROM t WHERE id IN (1,2) AND (text LIKE 'it%' OR id=-5) ORDER BY 1 LIMIT 5",
         S_OK},
        {"", DB_E_NOCOMMAND},
        {";", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM t; DELETE FROM t", DB_E_MULTIPLESTATEMENTS},
        {"SELECT id FROM t;;", DB_E_MULTIPLESTATEMENTS},
        {"SELECT id FROM t WHERE text='O'Brien';", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM t WHERE text='''; DELETE FROM t;", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM t WHERE text='a' -- and more'", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM t /* all */", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM t WHERE", DB_E_ERRORSINCOMMAND},
        {"SELECT nothing FROM t", DB_E_ERRORSINCOMMAND},
        {"SELECT id FROM missing", DB_E_NOTABLE},
        {"DELETE FROM t", DB_E_ERRORSINCOMMAND},
        {"WITH d AS (SELECT 1) DELETE FROM t", DB_E_ERRORSINCOMMAND},
        {"PRAGMA user_version=5", DB_E_ERRORSINCOMMAND},
    };
    for (const auto& [sql, result] : cases) {
        SCOPED_TRACE(sql);
        TestRowset set;
        EXPECT_EQ(Open(set, sql), result) << oledb::LastErrorText();
        EXPECT_EQ(oledb::LastErrorText().empty(), result == S_OK) << oledb::LastErrorText();
        EXPECT_TRUE(result != S_OK || set.Move() == S_OK);
        EXPECT_EQ(Rows("SELECT id FROM t"), "1");
    }
}

TEST_P(RowsetContract, ChangesNeedRowsOfOneTable) {
    Run("CREATE TABLE t(id INTEGER, value REAL); INSERT INTO t VALUES(1,2.0),(1,2.0)");
    Run("CREATE TABLE u(id INTEGER); CREATE VIEW w AS SELECT * FROM t");
    for (const char* sql :
         {"SELECT t.id,value FROM t JOIN u ON t.id=u.id", "SELECT t.id,value FROM t,u",
          "SELECT 1,count(*) FROM t", "SELECT id,value FROM t GROUP BY id,value",
          "SELECT id,value FROM t WHERE id=1 GROUP BY id,value",
          "SELECT id,value FROM t WHERE id=1 UNION SELECT 1,2",
          "SELECT id,value FROM t UNION SELECT 1,2", "SELECT id,value FROM (SELECT * FROM t) s",
          "SELECT id,value FROM w", "SELECT 1,2"}) {
        SCOPED_TRACE(sql);
        TestRowset set;
        EXPECT_EQ(Open(set, sql), DB_E_ERRORSOCCURRED);
        EXPECT_EQ(set.Open(*session_.operator->(), sql, {}), S_OK)
            << "for reading it may be opened";
    }
    TestRowset distinct;
    ASSERT_EQ(Open(distinct, "SELECT DISTINCT id FROM t"), S_OK);
    LONG id = 0;
    ASSERT_EQ(distinct.ReadNumber(id), S_OK);
    id = 7;
    EXPECT_EQ(distinct.Set(&id), DB_E_NOTSUPPORTED);
    EXPECT_EQ(distinct.Insert(&id), DB_E_NOTSUPPORTED);
    EXPECT_EQ(distinct.Delete(), DB_E_NOTSUPPORTED);
    EXPECT_EQ(distinct.Move(), DB_S_ENDOFROWSET);
    EXPECT_EQ(Rows("SELECT id FROM t"), "1 1");
}

TEST_P(RowsetContract, BindingsAreChecked) {
    OpenPairs();
    DBBINDING length = Bind(1, DBTYPE_I4, 0, 4);
    length.dwPart |= DBPART_LENGTH;
    const std::pair<DBBINDING, DBBINDSTATUS> cases[] = {
        {Bind(0, DBTYPE_I4, 0, 4), DBBINDSTATUS_BADORDINAL},
        {Bind(4, DBTYPE_I4, 0, 4), DBBINDSTATUS_BADORDINAL},
        {Bind(1, 7, 0, 8), DBBINDSTATUS_UNSUPPORTEDCONVERSION},
        {Bind(1, DBTYPE_WSTR, 0, 1), DBBINDSTATUS_BADBINDINFO},
        {length, DBBINDSTATUS_BADBINDINFO},
    };
    for (const auto& [binding, expected] : cases) {
        DBBINDSTATUS status = DBBINDSTATUS_OK;
        HACCESSOR accessor = DB_NULL_HACCESSOR;
        EXPECT_EQ(
            set_.accessors->CreateAccessor(DBACCESSOR_ROWDATA, 1, &binding, 0, &accessor, &status),
            DB_E_ERRORSOCCURRED);
        EXPECT_EQ(status, expected);
    }
    EXPECT_EQ(set_.accessors->ReleaseAccessor(set_.accessor, nullptr), S_OK);
    ASSERT_EQ(set_.Move(), S_OK);
    EXPECT_EQ(set_.Read(&pair_), DB_E_BADACCESSORHANDLE);
}

}  // namespace
