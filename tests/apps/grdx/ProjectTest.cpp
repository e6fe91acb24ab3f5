// The project's own data: shown, changed in profile and database together, marked as checked.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include <nlohmann/json.hpp>

#include "tests/system/Program.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {
class ProjectTest : public testing::Test {
protected:
    ProgramResult Project(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {GRDX_PROGRAM, "project", "-s", suite_.Folder()});
        return RunProgram(arguments);
    }
    std::string Row() const { return suite_.Ask("SELECT GCBH,GCMC,GCBZ,GCSJ FROM x_GongCheng"); }
    std::string Profile() const { return FileBytes(suite_.Folder() / "project.ini"); }

    ScratchFolder scratch_;
    SampleSuite suite_{scratch_.Path() / "suite", 0};
};

TEST_F(ProjectTest, ChangesAreMadeInProfileAndTable) {
    EXPECT_EQ(Project({}).output,
              "project 1\nnumber 2026-017\nname 滨江新城一期\ncode 0\nchecked yes\n");
    const ProgramResult changed = Project(
        {"--number", "2026-018", "--name", "'二期' ", "--code", "2", "--checked", "no", "--json"});
    EXPECT_EQ(changed.status, 0) << changed.errors;
    EXPECT_EQ(changed.errors, "");
    const nlohmann::json json = nlohmann::json::parse(changed.output);
    EXPECT_EQ(json["table"]["name"], "'二期' ");
    EXPECT_EQ(json["name"], "'二期' ");
    EXPECT_EQ(Row(), "2026-018|'二期' |2|1\n");
    EXPECT_EQ(json["checked"], false);

    suite_.Ask("UPDATE x_GongCheng SET GCBH='other', GCSJ=2");
    EXPECT_EQ(Project({"--checked", "yes", "--name", "三期"}).output,
              "project 1\nnumber 2026-018 (x_GongCheng: other)\nname 三期\ncode 2\nchecked yes\n");
    EXPECT_EQ(Row(), "other|三期|2|0\n");

    suite_.Ask("DELETE FROM x_GongCheng");
    EXPECT_THAT(Project({}).output, StartsWith("project 1 (x_GongCheng: no such row)\n"));
    EXPECT_THAT(Project({"--code", "0"}).errors, HasSubstr("no row of the project 1"));
}

TEST_F(ProjectTest, WhatCannotBeChangedInBothPlacesIsChangedInNeither) {
    struct Case {
        std::vector<std::string> arguments;
        int status;
        const char* told;
    };
    const Case cases[] = {{{"--number", "a/b", "--name", "x"}, 1, "project number \"a/b\""},
                          {{"--number", "."}, 1, "it names a folder"},
                          {{"--name", std::string(151, 'x')}, 1, "more than 150 bytes"},
                          {{"--code", "3"}, 2, "--code"},
                          {{"--checked", "maybe"}, 2, "--checked"}};
    const std::string row = Row();
    std::string profile = Profile();
    const auto expectRefused = [&](const ProgramResult& run, int status, const char* told) {
        EXPECT_EQ(run.status, status) << told;
        EXPECT_THAT(run.errors, HasSubstr(told));
        EXPECT_EQ(Row(), row) << told;
        EXPECT_EQ(Profile(), profile) << told;
    };
    for (const Case& bad : cases) {
        expectRefused(Project(bad.arguments), bad.status, bad.told);
    }
    // The table takes the change, and the disk not the profile, which has become large.
    profile += std::string(300'000, ';');
    std::ofstream(suite_.Folder() / "project.ini") << profile;
    expectRefused(RunProgram({"bash", "-c", "trap '' XFSZ; ulimit -f 256; exec \"$0\" \"$@\"",
                              GRDX_PROGRAM, "project", "--name", "x", "-s", suite_.Folder()}),
                  1, "project.ini: File too large");
    suite_.Ask(
        "CREATE TRIGGER keep BEFORE UPDATE ON x_GongCheng "
        "BEGIN SELECT RAISE(ABORT, 'not today'); END");
    expectRefused(Project({"--name", "x"}), 1, "not today");
}

TEST_F(ProjectTest, SheetsAndMarksStayWithTheirNumber) {
    ASSERT_EQ(suite_.Draw("ZK1").status, 0);
    const auto sheets = suite_.Sheets();
    const auto drawn = [this] {
        return RunProgram({GRDX_PROGRAM, "list", "-s", suite_.Folder()}).output.find("  * ") !=
               std::string::npos;
    };
    EXPECT_TRUE(drawn());
    EXPECT_THAT(Project({"--number", "2026-018"}).errors,
                StartsWith("grdx: " + std::to_string(sheets.size()) + " sheets stay in " +
                           sheets.front().parent_path().string() + ": the number 2026-017"));
    EXPECT_FALSE(drawn());
    EXPECT_EQ(Project({"--number", "2026-017"}).errors, "");
    EXPECT_TRUE(drawn());
    EXPECT_EQ(suite_.Sheets(), sheets);
}

TEST_F(ProjectTest, AnUncheckedProjectIsMarkedWhereACommandAsksForIt) {
    const std::string draw = "CGRDX\n@answer ok\n";
    const std::string choose = "CGRDX\n@select 2008 ZK2\n@select 2001 2-2\n@press ok\n";
    Project({"--checked", "no"});
    std::ofstream(scratch_.Path() / "script") << draw;
    const std::vector<std::string> script = {GRDX_PROGRAM, "script", scratch_.Path() / "script",
                                             "-s", suite_.Folder()};
    const ProgramResult left = RunProgram(script);
    EXPECT_THAT(left.errors, HasSubstr("Project profile (GCSJ): not checked\n"
                                       "Table x_GongCheng (GCSJ): not checked\n"));
    EXPECT_THAT(left.errors, HasSubstr("The project is left as it is."));
    EXPECT_THAT(Row(), testing::EndsWith("|1\n"));

    std::ofstream(scratch_.Path() / "script") << draw << "@answer yes\n" << choose;
    const ProgramResult marked = RunProgram(script);
    EXPECT_EQ(marked.status, 1) << "the first command was refused: " << marked.errors;
    EXPECT_THAT(marked.output, testing::EndsWith("KFZK2-2-2.dwg\n"));
    EXPECT_THAT(Row(), testing::EndsWith("|0\n"));
}
}  // namespace
