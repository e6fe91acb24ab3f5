#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/platform/oledb/TestRowset.h"
#include "tests/platform/win32/OrdinaryUser.h"

namespace {

namespace fs = std::filesystem;

TEST(SqliteProvider, InitialisationStringsThatNameNoDataSourceAreRefused) {
    struct Case {
        const char* text;
        HRESULT source;  ///< of making the data source
        HRESULT opened;  ///< of initialising it
        const char* named;
    };
    const Case cases[] = {
        {"", DB_E_BADINITSTRING, 0, "Provider"},
        {"Data Source=a.db", DB_E_BADINITSTRING, 0, "Provider"},
        {"Provider=Oracle;Data Source=a.db", REGDB_E_CLASSNOTREG, 0, "Oracle"},
        {"Provider=", REGDB_E_CLASSNOTREG, 0, "\"\""},
        {"nonsense", DB_E_BADINITSTRING, 0, "nonsense"},
        {"Provider=SQLite;Data Source=\"a.db", DB_E_BADINITSTRING, 0, "Data Source"},
        {"provider=sqlite", S_OK, DB_E_BADINITSTRING, "Data Source"},
        {"Provider=SQLite;Data Source=", S_OK, DB_E_BADINITSTRING, "Data Source"},
        {"Provider=SQLite;Data Source=a.db;Pasword=x", S_OK, DB_E_BADINITSTRING, "Pasword"},
        {"Provider=SQLite;Data Source=:memory:", S_OK, E_FAIL, ":memory:"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Ref<IDBInitialize> source;
        ASSERT_EQ(MakeSource(c.text, source), c.source);
        if (c.source == S_OK) {
            EXPECT_EQ(source->Initialize(), c.opened);
        }
        EXPECT_NE(oledb::LastErrorText().find(c.named), std::string::npos)
            << oledb::LastErrorText();
    }
}

TEST(SqliteProvider, FilesThatAreNoDatabaseAreRefusedAndLeftAlone) {
    const ScratchFolder folder;
    std::ofstream(folder.Path("empty.db")).flush();
    std::ofstream(folder.Path("text.db")) << std::string(5000, 'x');
    fs::create_directory(folder.Path("folder.db"));
    for (const char* name : {"missing.db", "empty.db", "text.db", "folder.db"}) {
        SCOPED_TRACE(name);
        Ref<IDBInitialize> source;
        ASSERT_EQ(MakeSource("Provider=SQLite;Data Source=" + folder.Path(name), source), S_OK);
        EXPECT_TRUE(FAILED(source->Initialize()));
        EXPECT_NE(oledb::LastErrorText().find(name), std::string::npos) << oledb::LastErrorText();
        IUnknown* session = nullptr;
        EXPECT_EQ(source.As<IDBCreateSession>(IID_IDBCreateSession)
                      ->CreateSession(nullptr, IID_IOpenRowset, &session),
                  E_UNEXPECTED);
    }
    EXPECT_FALSE(fs::exists(folder.Path("missing.db")));
    EXPECT_EQ(fs::file_size(folder.Path("empty.db")), 0U);
    EXPECT_EQ(fs::file_size(folder.Path("text.db")), 5000U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 3);
}

TEST(SqliteProvider, AFailedDataSourceMayBeInitialisedAgain) {
    const ScratchFolder folder;
    Ref<IDBInitialize> source;
    ASSERT_EQ(MakeSource("Provider=SQLite;Data Source=" + folder.Path("late.db"), source), S_OK);
    EXPECT_TRUE(FAILED(source->Initialize()));
    SqliteTestDatabase(folder.Path("late.db").c_str()).Run("CREATE TABLE t(x)");
    EXPECT_EQ(source->Initialize(), S_OK) << oledb::LastErrorText();
    EXPECT_EQ(source->Initialize(), DB_E_ALREADYINITIALIZED);
}

TEST(SqliteProvider, TheFileIsFoundByItsWindowsPathAndClosedWithTheLastObject) {
    const ScratchFolder folder;
    const std::string path = folder.Path("工程.db");
    SqliteTestDatabase(path.c_str()).Run("CREATE TABLE t(x); INSERT INTO t VALUES(1)");
    std::string windows = folder.Path("工程.DB");
    std::replace(windows.begin(), windows.end(), '/', '\\');
    {
        TestRowset set;
        ASSERT_EQ(
            set.Open(*OpenSession("Data Source='" + windows + "';Provider=SQLite").operator->(),
                     "SELECT x FROM t"),
            S_OK);
        LONG x = 0;
        ASSERT_EQ(set.ReadNumber(x), S_OK);
        x = 2;
        EXPECT_EQ(set.Set(&x), S_OK) << "the row set alone keeps the database open";
        EXPECT_TRUE(fs::exists(path + "-wal"));
    }
    EXPECT_FALSE(fs::exists(path + "-wal"));
}

TEST(SqliteProvider, WhereNothingCanBeWrittenRowsAreReadAndChangesRefused) {
    const ScratchFolder folder;
    const SqliteTestDatabase writer(folder.Path("written.db").c_str());
    writer.Run("CREATE TABLE t(x)");
    fs::copy_file(writer.Path(), folder.Path("cut.db"));
    fs::copy_file(writer.Path() + "-wal", folder.Path("cut.db-wal"));
    for (const char* journal : {"wal", "delete", "truncate", "persist"}) {
        const ScratchFolder place;
        const std::string path = place.Path("closed.db");
        SqliteTestDatabase(path.c_str())
            .Run(std::string("PRAGMA journal_mode=") + journal +
                 "; CREATE TABLE t(x); INSERT INTO t VALUES(7)");
        const auto names = [&] {
            std::set<std::string> all;
            for (const auto& entry : fs::directory_iterator(place.Path())) {
                all.insert(entry.path().filename());
            }
            return all;
        };
        const std::set<std::string> before = names();
        for (const auto& [file, around] :
             {std::pair<mode_t, mode_t>{0444, 0555}, {0666, 0555}, {0444, 0777}}) {
            SCOPED_TRACE(std::string(journal) + " " + std::to_string(file));
            for (const std::string& name : before) chmod(place.Path(name).c_str(), 0444);
            chmod(path.c_str(), file);
            chmod(place.Path().c_str(), around);
            EXPECT_EQ(AsOrdinaryUser([&] {
                          const auto session = OpenSession("Provider=SQLite;Data Source=" + path);
                          TestRowset set;
                          LONG x = 0;
                          if (FAILED(set.Open(*session.operator->(), "SELECT x FROM t")) ||
                              FAILED(set.ReadNumber(x)) || x++ != 7) {
                              return 1;
                          }
                          return FAILED(set.Set(&x)) ? 0 : 2;
                      }),
                      0);
            EXPECT_EQ(names(), before);
        }
        chmod(place.Path().c_str(), 0755);
    }
    EXPECT_EQ(AsOrdinaryUser([&] {
                  Ref<IDBInitialize> source;
                  MakeSource("Provider=SQLite;Data Source=" + folder.Path("cut.db"), source);
                  return FAILED(source->Initialize()) ? 0 : 1;
              }),
              0)
        << "the last changes are still in the log";
    chmod(folder.Path().c_str(), 0755);
}

TEST(SqliteProvider, TheJournalModeOfADatabaseIsItsOwn) {
    for (const char* journal : {"delete", "wal"}) {
        const SqliteTestDatabase database;
        database.Run(std::string("PRAGMA journal_mode=") + journal);
        database.Run("CREATE TABLE t(x); INSERT INTO t VALUES(1)");
        {
            TestRowset set;
            LONG x = 0;
            ASSERT_EQ(set.Open(*OpenSession(database.InitString()).operator->(), "SELECT x FROM t"),
                      S_OK);
            ASSERT_EQ(set.ReadNumber(x), S_OK);
            x = 2;
            EXPECT_EQ(set.Set(&x), S_OK);
        }
        EXPECT_EQ(database.Rows("PRAGMA journal_mode"), journal);
        EXPECT_EQ(database.Rows("SELECT x FROM t"), "2");
        fs::copy_file(database.Path(), database.Path() + "2");
        EXPECT_EQ(SqliteTestDatabase((database.Path() + "2").c_str()).Rows("SELECT x FROM t"), "2")
            << "also without its log, which others still have open";
    }
}

TEST(SqliteProvider, AFileThatOthersDoNotFindAnyMoreIsNotWritten) {
    struct Case {
        const char* journal;
        const char* gone;  ///< ending of the file that is taken away
        bool replaced;     ///< by a copy
        bool read;         ///< reading goes on
    };
    const Case cases[] = {{"wal", "", true, false},     {"wal", "", false, false},
                          {"delete", "", true, false},  {"wal", "-wal", false, true},
                          {"wal", "-shm", false, true}, {"delete", "-wal", false, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.journal) + c.gone);
        const SqliteTestDatabase database;
        database.Run(std::string("PRAGMA journal_mode=") + c.journal);
        database.Run("CREATE TABLE t(x); INSERT INTO t VALUES(1)");
        const auto session = OpenSession(database.InitString());
        TestRowset set;
        ASSERT_EQ(set.Open(*session.operator->(), "SELECT x FROM t"), S_OK);
        LONG x = 0;
        ASSERT_EQ(set.ReadNumber(x), S_OK);
        const std::string file = database.Path() + c.gone;
        const bool there = fs::exists(file);
        database.Run("VACUUM INTO '" + file + "2'; INSERT INTO t VALUES(5)");
        fs::remove(file);
        if (c.replaced) fs::rename(file + "2", file);
        x = 2;
        EXPECT_EQ(FAILED(set.Set(&x)), there);
        EXPECT_EQ(oledb::LastErrorText().find("replaced or deleted") != std::string::npos, there);
        EXPECT_EQ(database.Rows("SELECT x FROM t"), there ? "1 5" : "2 5");
        EXPECT_EQ(SUCCEEDED(TestRowset().Open(*session.operator->(), "SELECT x FROM t")), c.read);
        if (c.replaced) {
            EXPECT_EQ(SqliteTestDatabase(file.c_str()).Rows("SELECT x FROM t"), "1")
                << "the log of the lost file is not read as the new one's";
        }
    }
}

TEST(SqliteProvider, RowsAreToldApartByWhateverTheTableHas) {
    const std::pair<const char*, const char*> cases[] = {
        {"CREATE TABLE t(x, n)", "1|5 1|2"},
        {"CREATE TABLE t(x, n, rowid, _rowid_)", "1|5 1|2"},
        {"CREATE TABLE t(x, n INTEGER PRIMARY KEY)", "1|2 1|5"},
        {"CREATE TABLE t(x, n TEXT, \"odd \"\" name\", PRIMARY KEY(n, x)) WITHOUT ROWID",
         "1|2 1|5"},
    };
    for (const auto& [create, after] : cases) {
        SCOPED_TRACE(create);
        SqliteTestDatabase database;
        database.Run(create);
        database.Run("INSERT INTO t(x,n) VALUES(1,1),(1,2)");
        TestRowset set;
        const auto session = OpenSession(database.InitString());
        ASSERT_EQ(set.Open(*session.operator->(), "SELECT x,n FROM main.t AS a WHERE a.x=1"), S_OK)
            << oledb::LastErrorText();
        struct {
            LONG x, n;
        } record{};
        ASSERT_EQ(set.SetBindings({Bind(1, DBTYPE_I4, 0, 4), Bind(2, DBTYPE_I4, 4, 4)}), S_OK);
        ASSERT_EQ(set.MoveAndRead(&record), S_OK);
        ASSERT_EQ(record.n, 1);
        for (const LONG key : {4, 5}) {
            record.n = key;  // also where it is the row's identity that changes
            ASSERT_EQ(set.Set(&record), S_OK) << oledb::LastErrorText();
            ASSERT_EQ(set.Read(&record), S_OK);
            EXPECT_EQ(record.n, key);
        }
        EXPECT_EQ(database.Rows("SELECT x,n FROM t"), after);
    }
}

/// The library asks it of every table that a statement it prepares reads.
int preparedReads = 0;
int NotePrepared(void*, int action, const char* table, const char*, const char*, const char*) {
    preparedReads += action == SQLITE_READ && std::string(table) == "t" ? 1 : 0;
    return SQLITE_OK;
}
int Watch(sqlite3* database, char**, const void*) {
    return sqlite3_set_authorizer(database, NotePrepared, nullptr);
}

TEST(SqliteProvider, AQuestionAboutAnotherKeyIsNotPreparedAgain) {
    SqliteTestDatabase database;
    database.Run(
        "CREATE TABLE t(k TEXT, n INTEGER); INSERT INTO t VALUES('a',1),('b?1',2),('b',2)");
    const auto watch = reinterpret_cast<void (*)()>(Watch);
    sqlite3_auto_extension(watch);
    const auto session = OpenSession(database.InitString());
    sqlite3_cancel_auto_extension(watch);
    int ofTheFirst = 0;
    for (const auto& [condition, rows] :
         std::vector<std::pair<std::string, LONG>>{{"k='a' and n=1", 1},
                                                   {"k='b?1' and n=2", 1},
                                                   {"k='c' and n=1", 0},
                                                   {"k='2' and n=2", 0}}) {
        TestRowset set;
        ASSERT_EQ(set.Open(*session.operator->(), "SELECT n FROM t WHERE " + condition), S_OK);
        LONG found = 0;
        while (set.Move() == S_OK) ++found;
        EXPECT_EQ(found, rows) << condition;
        ofTheFirst = ofTheFirst == 0 ? preparedReads : ofTheFirst;
    }
    EXPECT_GT(ofTheFirst, 0);
    EXPECT_EQ(preparedReads, ofTheFirst);
}

TEST(SqliteProvider, AChangedTableIsSeenByStatementsKeptPrepared) {
    struct Case {
        const char* drop;  ///< null: the table stays
        const char* change;
        const char* columns;
        const char* rows;  ///< once n of the first row has become 4
    };
    const Case cases[] = {
        {"DROP TABLE t",
         "CREATE TABLE t(m PRIMARY KEY, n INTEGER) WITHOUT ROWID; INSERT INTO t VALUES('x',3)",
         "m,n", "x|4"},
        // A column that hides the row's number.
        {nullptr, "ALTER TABLE t ADD COLUMN rowid INTEGER DEFAULT 7", "n,rowid", "4|7 2|7"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.change);
        SqliteTestDatabase database;
        database.Run("CREATE TABLE t(n INTEGER); INSERT INTO t VALUES(1),(2)");
        const auto session = OpenSession(database.InitString());
        const std::string sql = "SELECT n FROM t";
        EXPECT_EQ(TestRowset().Open(*session.operator->(), sql), S_OK);
        if (c.drop != nullptr) {
            database.Run(c.drop);
            EXPECT_EQ(TestRowset().Open(*session.operator->(), sql), DB_E_NOTABLE);
        }
        database.Run(c.change);
        TestRowset set;
        ASSERT_EQ(set.Open(*session.operator->(), sql), S_OK) << oledb::LastErrorText();
        LONG n = 0;
        ASSERT_EQ(set.ReadNumber(n), S_OK);
        n = 4;
        EXPECT_EQ(set.Set(&n), S_OK) << oledb::LastErrorText();
        EXPECT_EQ(database.Rows(std::string("SELECT ") + c.columns + " FROM t"), c.rows);
    }
}

}  // namespace
