// What cannot be written into the database must not pass for stored, and is told value by value.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/platform/win32/OrdinaryUser.h"
#include "tests/system/Program.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

class UnwritableDatabase : public testing::Test {
protected:
    ProgramResult Run(std::vector<std::string> words, std::vector<std::string> before = {},
                      int killAfterMicroseconds = -1) const {
        before.push_back(GRDX_PROGRAM);
        before.insert(before.end(), words.begin(), words.end());
        before.insert(before.end(), {"-s", suite_.Folder()});
        return RunProgram(before, killAfterMicroseconds);
    }
    ProgramResult DrawLayer(std::vector<std::string> before = {}, int killAfter = -1) const {
        return Run({"draw", "layers", "--layer", "2-1"}, std::move(before), killAfter);
    }

    ScratchFolder scratch_;
    SampleSuite suite_{scratch_.Path() / "suite", 0};
};

constexpr const char* kResultsOfSamples = "SELECT count(*) FROM Z_c_KeFen WHERE KLD60 IS NOT NULL";

TEST_F(UnwritableDatabase, ALockThatStaysIsWaitedForOnceAndEveryLostValueTold) {
    const SqliteTestDatabase other(suite_.Database().c_str());
    // Somebody else writes; somebody reads, without a log, so that no change can be committed.
    for (const char* lock :
         {"BEGIN IMMEDIATE", "PRAGMA journal_mode=DELETE; BEGIN; SELECT * FROM x_SheJi"}) {
        SCOPED_TRACE(lock);
        other.Run(lock);
        const auto begin = std::chrono::steady_clock::now();
        const ProgramResult samples =
            Run({"draw", "samples", "--borehole", "ZK1", "--all", "--wait", "1"});
        const auto took = std::chrono::steady_clock::now() - begin;
        const ProgramResult layer = Run({"draw", "layers", "--layer", "2-1", "--wait", "0"});
        const ProgramResult imported =
            Run({"import", "layers", std::string(GRDX_SAMPLES) + "/layers.csv", "--wait", "0"});
        other.Unlock();
        EXPECT_EQ(samples.status, 1);
        EXPECT_GE(took, std::chrono::seconds(1));
        EXPECT_LT(took, std::chrono::seconds(2)) << "sixteen stores, one wait";
        for (int sample = 1; sample <= 8; ++sample) {
            const std::string row =
                "grdx: Z_c_KeFen, GCSY=1, ZKBH=ZK1, QYBH=" + std::to_string(sample) + ": ";
            EXPECT_THAT(samples.errors,
                        AllOf(HasSubstr(row + "KLD"), HasSubstr(row + "KL800=0, ")));
        }
        EXPECT_THAT(samples.errors, HasSubstr("KLBJXS=45.867, KLQLXS=1.685: database is locked\n"));
        EXPECT_EQ(layer.status, 1);
        EXPECT_THAT(layer.errors, HasSubstr("grdx: x_SheJi, GCSY=1, ZCBH=2, YCBH=1, CSLX=1123: "
                                            "CSV=0.040: database is locked\n"));
        EXPECT_EQ(imported.status, 1);
        EXPECT_THAT(imported.errors, HasSubstr("project.db: database is locked"));
        EXPECT_EQ(suite_.Ask(kResultsOfSamples), "0\n");
    }
}

TEST_F(UnwritableDatabase, ALockThatGoesIsWaitedFor) {
    const SqliteTestDatabase other(suite_.Database().c_str());
    other.Lock();
    std::thread unlocking([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(2500));
        other.Unlock();
    });
    const ProgramResult drawn = Run({"draw", "samples", "--borehole", "ZK1", "--all"});
    unlocking.join();
    EXPECT_EQ(drawn.status, 0) << drawn.errors;
    EXPECT_EQ(drawn.errors, "");
    EXPECT_EQ(suite_.Ask(kResultsOfSamples), "8\n");

    other.Run("DELETE FROM x_SheJi");
    Run({"import", "layers", std::string(GRDX_SAMPLES) + "/layers.csv"});
    fs::copy_file(suite_.Database(), scratch_.Path() / "alone.db");
    const SqliteTestDatabase alone((scratch_.Path() / "alone.db").c_str());
    EXPECT_EQ(alone.Rows(kResultsOfSamples), "8") << "in the file, though its log is still open";
    EXPECT_NE(alone.Rows("SELECT count(*) FROM x_SheJi"), "0");
}

TEST_F(UnwritableDatabase, AFullDiskAndAWriteProtectedFileAreTold) {
    {
        // The log is longer already than a file may become; the sheet is not.
        const SqliteTestDatabase other(suite_.Database().c_str());
        other.Run("PRAGMA wal_autocheckpoint=0; CREATE TABLE filler(x)");
        other.Run("INSERT INTO filler VALUES(zeroblob(400000))");
        const ProgramResult full =
            DrawLayer({"bash", "-c", "trap '' XFSZ; ulimit -f 256; exec \"$@\"", "bash"});
        EXPECT_EQ(full.status, 1);
        EXPECT_THAT(full.errors, AllOf(HasSubstr("CSLX=1123: CSV=0.040: disk I/O error"),
                                       HasSubstr("CSLX=1126: CSV=0.195: disk I/O error")));
    }
    EXPECT_EQ(suite_.Ask("SELECT count(*) FROM x_SheJi WHERE CSLX>1118"), "0\n");

    for (const auto& entry : fs::recursive_directory_iterator(suite_.Folder())) {
        fs::permissions(entry, fs::perms::all);
    }
    for (fs::path folder = suite_.Folder(); folder != scratch_.Path().parent_path();
         folder = folder.parent_path()) {
        fs::permissions(folder, fs::perms::all);
    }
    fs::permissions(suite_.Database(), fs::perms(0444));
    EXPECT_EQ(AsOrdinaryUser([&] {
                  const ProgramResult closed = DrawLayer();
                  const bool told = closed.errors.find(
                                        "CSLX=1123: CSV=0.040: attempt to write a "
                                        "readonly") != std::string::npos;
                  return closed.status == 1 && told ? 0 : 1;
              }),
              0);
}

// GRDX_KILLS: how often each is killed.
TEST_F(UnwritableDatabase, AProgramKilledWhileItStoresLeavesAllOfTheResultsOrNone) {
    const char* const wanted = std::getenv("GRDX_KILLS");
    const int kills = wanted != nullptr ? std::atoi(wanted) : 12;
    const std::vector<std::string> sample = {"draw", "samples",  "--borehole",
                                             "ZK1",  "--sample", "7"};
    ASSERT_EQ(DrawLayer().status, 0);
    ASSERT_EQ(Run(sample).status, 0);
    constexpr const char* kSlowly =
        "BEGIN SELECT count(*) FROM (WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM c "
        "LIMIT 60000) SELECT n FROM c); END;";
    suite_.Ask(std::string("CREATE TRIGGER layer BEFORE UPDATE ON x_SheJi WHEN NEW.CSV<>'old' ") +
               kSlowly + "CREATE TRIGGER sample BEFORE UPDATE ON Z_c_KeFen WHEN NEW.KLD60<>-1 " +
               kSlowly);
    struct Store {
        std::vector<std::string> draw;
        std::string makeOld;
        std::string countOld;  ///< how many of the values are old ones, and of how many
    };
    const Store stores[] = {
        {{"draw", "layers", "--layer", "2-1"},
         "UPDATE x_SheJi SET CSV='old' WHERE ZCBH=2 AND YCBH=1 AND CSLX>1118",
         "SELECT sum(CSV='old'),count(*) FROM x_SheJi WHERE ZCBH=2 AND YCBH=1 AND CSLX>1118"},
        {sample, "UPDATE Z_c_KeFen SET KLD60=-1,KL0=-1 WHERE ZKBH='ZK1' AND QYBH='7'",
         "SELECT (KLD60=-1)+(KL0=-1),2 FROM Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='7'"}};
    for (const Store& store : stores) {
        suite_.Ask(store.makeOld);
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(Run(store.draw).status, 0);
        const auto took = std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now() - begin);
        EXPECT_TRUE(suite_.Ask(store.countOld).starts_with("0|"));
        int old = 0;
        for (int kill = 0; kill < kills; ++kill) {
            suite_.Ask(store.makeOld);
            Run(store.draw, {}, static_cast<int>(took.count() * kill / kills));
            const std::string left = suite_.Ask(store.countOld);
            const std::string all = left.substr(left.find('|') + 1);
            EXPECT_TRUE(left == "0|" + all || left.substr(0, left.find('|')) + "\n" == all) << left;
            old += left.starts_with("0|") ? 0 : 1;
        }
        EXPECT_GT(old, 0) << "no kill came before the end";
        EXPECT_EQ(suite_.Ask("PRAGMA integrity_check"), "ok\n");
    }
}

}  // namespace
