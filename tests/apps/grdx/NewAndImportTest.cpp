// Suite folders made and filled by the console program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>

#include "platform/win32/code_page.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/system/Program.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {
void Write(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

class NewAndImportTest : public testing::Test {
protected:
    /// Runs the console program.
    ProgramResult Grdx(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), GRDX_PROGRAM);
        return RunProgram(arguments);
    }
    ProgramResult ImportSamples(const std::string& csv) const {
        Write(scratch_.Path() / "data.csv", csv);
        return Grdx({"import", "samples", scratch_.Path() / "data.csv", "-s", Suite()});
    }
    fs::path Suite() const { return scratch_.Path() / "suite"; }
    /// The rows that statements on the database give, columns joined by "|", rows by blanks.
    std::string Ask(const std::string& statements) const {
        return SqliteTestDatabase((Suite() / "project.db").c_str()).Rows(statements);
    }
    void MakeSuite() const { ASSERT_EQ(Grdx({"new", Suite()}).status, 0); }

    ScratchFolder scratch_;
};

const std::string kHeader = "borehole,sample,depth,thickness,method,total,size,mass\n";
}  // namespace

TEST_F(NewAndImportTest, ANewSuiteHasItsFilesAndAProjectThatReadsBack) {
    const ProgramResult made =
        Grdx({"new", Suite(), "--number", "A 1", "--name", " \"桥\" ", "--code", "2"});
    EXPECT_EQ(made.status, 0) << made.errors;
    for (const char* name : {"suite.ini", "project.ini", "settings.ini", "marks.ini", "project.db",
                             "Support/Drawing.dwg", "Support/gltka3.dwg", "Support/fonts.ini"}) {
        EXPECT_TRUE(fs::is_regular_file(Suite() / name)) << name;
    }
    const std::string project =
        R"("project":{"index":1,"number":"A 1","name":" \"桥\" ","code":2})";
    EXPECT_THAT(Grdx({"list", "--json", "-s", Suite()}).output, HasSubstr(project));
    EXPECT_EQ(Ask("SELECT * FROM x_GongCheng"), "1|A 1| \"桥\" |2|0");

    const ProgramResult listed =
        RunProgram({"env", "GRDX_SUITE=" + Suite().string(), GRDX_PROGRAM, "list"});
    EXPECT_THAT(listed.output, StartsWith("project 1 A 1"));
    EXPECT_FALSE(fs::exists(Suite() / "project.db-wal")) << "reading leaves nothing behind";
}

TEST_F(NewAndImportTest, AFolderWithContentIsLeftAlone) {
    fs::create_directories(Suite());
    Write(Suite() / "mine", "kept");
    const ProgramResult refused = Grdx({"new", Suite()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr(Suite().string()));
    EXPECT_EQ(std::distance(fs::directory_iterator(Suite()), {}), 1);
    fs::remove(Suite() / "mine");
    EXPECT_EQ(Grdx({"new", Suite()}).status, 0) << "an empty folder will do";
}

TEST_F(NewAndImportTest, OfTwoAtOnceOneIsTheMakerAndAKilledOneLeavesNoSuite) {
    int killed = 0;
    for (int milliseconds = 0; milliseconds < 60; milliseconds += 5) {
        const bool ended =
            RunProgram({GRDX_PROGRAM, "new", Suite()}, milliseconds * 1000).status < 0;
        const bool made = fs::exists(Suite() / "suite.ini");
        EXPECT_EQ(Grdx({"list", "-s", Suite()}).status, made ? 0 : 1) << milliseconds;
        EXPECT_EQ(Grdx({"new", Suite()}).status, made ? 1 : 0) << milliseconds;
        killed += ended && !made ? 1 : 0;
        fs::remove_all(Suite());

        auto other = std::async([&] { return Grdx({"new", Suite()}); });
        const int status = Grdx({"new", Suite()}).status;
        EXPECT_EQ(status + other.get().status, 1) << "one done, one refused";
        EXPECT_EQ(Grdx({"list", "-s", Suite()}).status, 0);
        EXPECT_EQ(std::distance(fs::directory_iterator(Suite()), {}), 6) << "no traces of the work";
        fs::remove_all(Suite());
    }
    EXPECT_GT(killed, 0);
}

TEST_F(NewAndImportTest, BadNumbersAndNamesAreRefusedAndLeaveNothing) {
    const std::vector<std::vector<std::string>> cases = {
        {"--number", ""},
        {"--number", "a/b"},
        {"--number", ".."},
        {"--number", "a'b"},
        {"--number", " a"},
        {"--number", "a "},
        {"--number", "123456789012345678901"},
        {"--name", "\xF0\x9F\x98\x80"},
        {"--name", "a\nb"},
        {"--name", std::string(151, 'x')},
    };
    for (const auto& options : cases) {
        const ProgramResult refused = Grdx({"new", Suite(), options[0], options[1]});
        EXPECT_EQ(refused.status, 1) << options[1];
        EXPECT_THAT(refused.errors, StartsWith("grdx: project n")) << options[1];
        EXPECT_FALSE(fs::exists(Suite())) << options[1];
    }
    const ProgramResult unwritable = Grdx({"new", scratch_.Path() / "한/suite"});
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_THAT(unwritable.errors, HasSubstr("a character that GBK does not have"));
    EXPECT_TRUE(fs::is_empty(scratch_.Path()));
}

TEST_F(NewAndImportTest, WrongUsageIsToldApartFromRefusal) {
    const std::vector<std::vector<std::string>> cases = {
        {},
        {"nosuch"},
        {"new"},
        {"new", "x", "--code", "3"},
        {"import", "samples"},
        {"import", "things", "x.csv"},
        {"draw", "samples", "--all"},
        {"draw", "samples", "--borehole", "A"},
        {"draw", "samples", "--borehole", "A", "--all", "--sample", "1"},
        {"draw", "samples", "--borehole", "A", "--all", "--date", "2026-02-30"},
        {"draw", "layers", "--borehole", "A", "--all"},
        {"plot", "x.dwg", "--to", "bmp"},
    };
    for (const auto& arguments : cases) {
        const ProgramResult wrong = Grdx(arguments);
        EXPECT_EQ(wrong.status, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(wrong.output, IsEmpty());
        EXPECT_THAT(wrong.errors, testing::Not(IsEmpty()));
    }
    for (const char* group : {"", "draw ", "import "}) {
        EXPECT_THAT(
            RunProgram({"sh", "-c", std::string("$0 ") + group + "bogus", GRDX_PROGRAM}).errors,
            HasSubstr("\"bogus\" is no call of"));
        for (const auto& [locale, heading] :
             {std::pair{"C", "Usage: "}, {"zh_CN.UTF-8", "用法: "}}) {
            const ProgramResult help =
                RunProgram({"sh", "-c", std::string("LC_ALL=$1 $0 ") + group + "--help",
                            GRDX_PROGRAM, locale});
            EXPECT_EQ(help.status, 0);
            EXPECT_THAT(help.output, HasSubstr(heading));
        }
    }
    EXPECT_EQ(Grdx({"list", "-s", Suite()}).status, 1);
}

TEST_F(NewAndImportTest, SamplesReachTheirThreeTables) {
    MakeSuite();
    const ProgramResult imported = ImportSamples(kHeader +
                                                 "K,1,1.2,0.2,筛析法,161.6,2,100.1\n"
                                                 "K,1,1.2,0.2,筛析法,161.6,0.5,61.5\n"
                                                 "K,2,,,,30,0,0.5\n");
    EXPECT_EQ(imported.status, 0) << imported.errors;
    EXPECT_EQ(imported.output, "2 samples, 3 sieve items\n");
    EXPECT_EQ(Ask("SELECT * FROM z_c_QuYang"), "1|K|1|1.2|0.2 1|K|2|null|null");
    EXPECT_EQ(Ask("SELECT QYBH, KLSYFF, KLTYZL, KL2, KLD10, KLQLXS FROM Z_c_KeFen"),
              "1|筛析法|161.6|null|null|null 2||30.0|null|null|null");
    EXPECT_EQ(Ask("SELECT QYBH, XH, KLLJ, KLSYZL FROM Z_c_KeFenCSXM"),
              "1|1|2.0|100.1 1|2|0.5|61.5 2|1|0.0|0.5");
}

TEST_F(NewAndImportTest, ASampleImportedAgainIsReplacedWithItsResults) {
    MakeSuite();
    ImportSamples(kHeader + "K,1,1,1,m,10,2,4\nK,1,1,1,m,10,0.5,6\nK,2,1,1,m,10,2,1\n");
    Ask("UPDATE Z_c_KeFen SET KLD10 = 0.5");
    EXPECT_EQ(ImportSamples(kHeader + "K,1,3,,n,20,5,20\n").status, 0);
    EXPECT_EQ(Ask("SELECT QYSD, QYHD FROM z_c_QuYang"), "1.0|1.0 3.0|null");
    EXPECT_EQ(Ask("SELECT QYBH, KLTYZL, KLD10 FROM Z_c_KeFen ORDER BY QYBH"),
              "1|20.0|null 2|10.0|0.5");
    EXPECT_EQ(Ask("SELECT XH, KLLJ FROM Z_c_KeFenCSXM WHERE QYBH='1'"), "1|5.0");
}

TEST_F(NewAndImportTest, ABadFileIsRefusedWholeAndEachBadLineNamed) {
    MakeSuite();
    ImportSamples(kHeader + "K,1,1,1,m,10,2,4\n");
    const ProgramResult refused =
        ImportSamples(kHeader + "K,1,2,2,n,20,2,4\nK,2,1,1,m,x,2,4\nK,3,1,1,한,10,2,1\n");
    const std::string file = scratch_.Path() / "data.csv";
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(refused.errors, "grdx: " + file + ":3: total \"x\": not a number\n" + file +
                                  ":4: method \"한\": a character that GBK does not have\n");
    EXPECT_EQ(Ask("SELECT QYBH, KLTYZL FROM Z_c_KeFen"), "1|10.0");
}

TEST_F(NewAndImportTest, AFailureOfTheDatabaseTakesBackWhatWasStored) {
    MakeSuite();
    ImportSamples(kHeader + "K,1,1,1,m,10,2,4\n");
    Ask("CREATE TRIGGER refuse BEFORE INSERT ON Z_c_KeFenCSXM WHEN NEW.QYBH = '3' "
        "BEGIN SELECT RAISE(ABORT, 'no third sample'); END");
    const ProgramResult failed =
        ImportSamples(kHeader + "K,1,1,1,m,99,2,4\nK,2,1,1,m,10,2,4\nK,3,1,1,m,10,2,4\n");
    EXPECT_EQ(failed.status, 1);
    EXPECT_THAT(failed.errors, HasSubstr("project.db: no third sample"));
    EXPECT_EQ(Ask("SELECT QYBH, KLTYZL FROM Z_c_KeFen"), "1|10.0");
}

TEST_F(NewAndImportTest, GbkFilesSayTheSame) {
    MakeSuite();
    const ProgramResult imported =
        ImportSamples(win32::GbkFromUtf8(kHeader + "探井1,扰动样,1,1,筛析法,10,2,4\r\n"));
    EXPECT_EQ(imported.status, 0) << imported.errors;
    EXPECT_EQ(Ask("SELECT ZKBH, QYBH, KLSYFF FROM Z_c_KeFen"), "探井1|扰动样|筛析法");
}

TEST_F(NewAndImportTest, LayersReplaceTheirGradingAndLeaveOtherValues) {
    MakeSuite();
    Ask("INSERT INTO x_SheJi VALUES (1,2,1,1100,'9'), (1,2,1,1128,'9'), (1,2,1,1129,'9'), "
        "(1,2,1,17,'9'), (1,3,0,1100,'9'), (2,2,1,1100,'9')");
    Write(scratch_.Path() / "layers.csv", "main,sub,size,percent\n2,1,20,25\n2,1,0,75.0\n");
    const ProgramResult imported =
        Grdx({"import", "layers", scratch_.Path() / "layers.csv", "-s", Suite()});
    EXPECT_EQ(imported.status, 0) << imported.errors;
    EXPECT_EQ(imported.output, "1 layer\n");
    EXPECT_EQ(Ask("SELECT GCSY, ZCBH, CSLX, CSV FROM x_SheJi ORDER BY GCSY, ZCBH, CSLX"),
              "1|2|17|9 1|2|1105|25 1|2|1118|75.0 1|2|1129|9 1|3|1100|9 2|2|1100|9");
}
