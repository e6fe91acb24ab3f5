// Suite folders made by the console program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>

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

class NewSuiteTest : public testing::Test {
protected:
    /// Runs the console program.
    ProgramResult Grdx(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), GRDX_PROGRAM);
        return RunProgram(arguments);
    }
    fs::path Suite() const { return scratch_.Path() / "suite"; }
    /// The rows that statements on the database give, columns joined by "|", rows by blanks.
    std::string Ask(const std::string& statements) const {
        return SqliteTestDatabase((Suite() / "project.db").c_str()).Rows(statements);
    }
    void MakeSuite() const { ASSERT_EQ(Grdx({"new", Suite()}).status, 0); }

    ScratchFolder scratch_;
};
}  // namespace

TEST_F(NewSuiteTest, ANewSuiteHasItsFilesAndAProjectThatReadsBack) {
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

TEST_F(NewSuiteTest, AFolderWithContentIsLeftAlone) {
    fs::create_directories(Suite());
    Write(Suite() / "mine", "kept");
    const ProgramResult refused = Grdx({"new", Suite()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr(Suite().string()));
    EXPECT_EQ(std::distance(fs::directory_iterator(Suite()), {}), 1);
    fs::remove(Suite() / "mine");
    EXPECT_EQ(Grdx({"new", Suite()}).status, 0) << "an empty folder will do";
}

TEST_F(NewSuiteTest, OfTwoAtOnceOneIsTheMakerAndAKilledOneLeavesNoSuite) {
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

TEST_F(NewSuiteTest, BadNumbersAndNamesAreRefusedAndLeaveNothing) {
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

TEST_F(NewSuiteTest, WrongUsageIsToldApartFromRefusal) {
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
