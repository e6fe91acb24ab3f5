// Scripts: command-line input with the answers to dialogs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include <nlohmann/json.hpp>

#include "apps/grdx/ScriptLines.h"
#include "platform/win32/code_page.h"
#include "tests/system/Program.h"

using console::ScriptLines;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST(ScriptLinesTest, AnswersBelongToTheLineAboveThem) {
    std::vector<std::string> events;
    ScriptLines lines(
        ScriptLines::OfText("@answer yes\n"
                            "; a comment\n"
                            "CGRDX\r\n"
                            "\n"
                            "  @page 604\r\n"
                            "; another\n"
                            "@answer no\n"
                            "@nonsense\n"
                            "OPEN 钻孔\n"
                            "OPEN \xF0\x9F\x98\x80\n"),
        [&](const std::string& fault) { events.push_back(fault.substr(0, fault.find(':'))); });
    while (!lines.AtEnd()) {
        while (const auto answer = lines.NextAnswer()) {
            events.push_back(mfc::DescribeAnswer(*answer));
        }
        if (const auto line = lines.NextInput()) {
            events.push_back(win32::Utf8FromGbk(*line));
        }
    }
    EXPECT_THAT(events, ElementsAre("@answer yes", "CGRDX\r", "@page 604", "@answer no", "line 8",
                                    "OPEN 钻孔", "line 10"));
}

namespace {
class ScriptTest : public testing::Test {
protected:
    ProgramResult Run(const std::string& script) const {
        std::ofstream(scratch_.Path() / "script") << script;
        return RunProgram({GRDX_PROGRAM, "script", scratch_.Path() / "script", "-s", folder_});
    }
    /// A pick of the curve on the sheet that a run has made.
    static std::string CurveOf(const ProgramResult& run) {
        const ProgramResult info = RunProgram(
            {GRDX_PROGRAM, "info", "--json", run.output.substr(0, run.output.find('\n'))});
        return "#" + nlohmann::json::parse(info.output)["curves"][0]["handle"].get<std::string>();
    }
    nlohmann::json ResultsOfSample4() const {
        const ProgramResult list = RunProgram({GRDX_PROGRAM, "list", "--json", "-s", folder_});
        return nlohmann::json::parse(list.output)["boreholes"][0]["samples"][3]["results"];
    }

    ScratchFolder scratch_;
    std::string folder_ = scratch_.Path() / "suite";
    SampleSuite suite_{folder_, 0};
};
}  // namespace

TEST_F(ScriptTest, TheExampleReshapesAndStoresACurve) {
    const ProgramResult drawn =
        Run("CGRDX\n"
            "@select 2008 ZK1\n"
            "@select 2001 3 4\n"
            "@page 601\n"
            "@type 2009 \"王 工\"\n"
            "@check 2027 on\n"
            "@press ok\n");
    EXPECT_EQ(drawn.status, 0) << drawn.errors;
    EXPECT_EQ(drawn.errors, "");
    EXPECT_THAT(drawn.output, HasSubstr("KFZK1-3~ZK1-4.dwg\n"));
    EXPECT_TRUE(ResultsOfSample4()["d10"].is_null()) << "the curve ends above 10 %";

    const ProgramResult edited = RunProgram(
        {GRDX_PROGRAM, "script", std::string(GRDX_SAMPLES) + "/reshape.scr", "-s", folder_});
    EXPECT_EQ(edited.status, 0);
    EXPECT_EQ(edited.errors, "请选择颗分试样曲线:\n颗分数据存储成功!\n");
    EXPECT_EQ(edited.output, drawn.output) << "the sheet is saved";
    EXPECT_NEAR(ResultsOfSample4()["d10"], 0.078, 1e-6);
    EXPECT_NEAR(ResultsOfSample4()["Cu"], 3.154, 1e-6);
}

TEST_F(ScriptTest, AnswersThatDoNotFitAreToldAndTheRestRuns) {
    const ProgramResult run =
        Run("CGRDX\n@select 2008 ZK1\n@select 2001 99\n@press ok\n"
            "SDI 1\n@answer yes\n"
            "FOO\n"
            "SAVEAS " +
            scratch_.Path().string() + "/made\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("control 2001 has no item 99"));
    EXPECT_THAT(run.errors, HasSubstr("not asked for: @press ok"));
    EXPECT_THAT(run.errors, HasSubstr("not asked for: @answer yes"));
    EXPECT_THAT(run.errors, HasSubstr("Unknown command \"FOO\""));
    EXPECT_EQ(run.output, scratch_.Path().string() + "/made.dwg\n");
}

TEST_F(ScriptTest, AChangedDrawingIsAskedForBeforeAnotherTakesItsPlace) {
    EXPECT_EQ(suite_.Draw("ZK1").status, 0);
    const auto sheet = suite_.Sheets().at(1);
    ASSERT_EQ(sheet.filename(), "KFZK1-3~ZK1-4.dwg");
    const std::string drawn = FileBytes(sheet);
    const std::string others[] = {
        "CGRDX\n@answer no\n@select 2008 ZK2\n@select 2001 2-2\n@press ok\n",
        "SDI 1\nEGRDX\n@answer no\n@select 2014 ZK1\n@select 2015 试样ZK1-1和ZK1-2\n@press ok\n",
        "SDI 1\nOPEN " + suite_.Sheets().at(0).string() + "\n@answer no\n"};
    struct Case {
        std::string answer;
        bool saved;
        bool opened;
    };
    const Case cases[] = {
        {"@answer cancel", false, false}, {"@answer no", false, true}, {"", true, true}};
    for (const std::string& other : others) {
        for (const Case& row : cases) {
            std::ofstream(sheet) << drawn;
            const ProgramResult run = Run("OPEN " + sheet.string() + "\nGRIP 133,53 5 0,-1.5\n" +
                                          other + row.answer + "\nLIST 133,53\n");
            EXPECT_EQ(FileBytes(sheet) != drawn, row.saved) << other << row.answer;
            EXPECT_EQ(run.errors.find("\nCKFCurve") == std::string::npos, row.opened) << run.errors;
            EXPECT_THAT(run.errors, HasSubstr("Save the changes to " + sheet.string() + "?"));
            EXPECT_THAT(run.errors, Not(HasSubstr("not asked for")));
        }
    }
}

TEST_F(ScriptTest, PathsCountFromTheFolderTheProgramStartedIn) {
    // The chart command leaves the current folder at the sheets.
    std::ofstream(scratch_.Path() / "script")
        << "CGRDX\n@select 2008 ZK1\n@select 2001 1\n@press ok\nSAVEAS here\n";
    const ProgramResult run =
        RunProgram({"env", "-C", scratch_.Path(), GRDX_PROGRAM, "script", "script", "-s", "suite"});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(std::filesystem::exists(scratch_.Path() / "here.dwg"));
}

TEST_F(ScriptTest, WhatIsRefusedOrFailsIsAFailureWhatIsCancelledIsNot) {
    const std::string choice = "CGRDX\n@select 2001 1\n";
    const ProgramResult drawn = Run(choice + "@press ok\n");
    ASSERT_EQ(drawn.status, 0) << drawn.errors;
    const std::string open = "OPEN " + drawn.output;
    const std::string curve = CurveOf(drawn);
    suite_.Ask("DELETE FROM Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='2'");
    const struct {
        std::string script;
        int status;
        const char* said;
    } rows[] = {
        {"SGRDX\n0,0\n", 1, "什么也没有选中."},
        {open + "SGRDX\n" + curve + "\n", 1, "颗分数据存储失败!"},
        {"CGRDX\n@select 2001 2\n@press ok\n", 1, "not made; not drawn: 2"},
        {choice + "@press cancel\n", 0, ""},
        {"CGRDX\n@press ok\n", 1, "请选择试样编号"},
        {"CGRDX\n@press ok\n@press cancel\n", 0, "请选择试样编号"},
        {"CGRDX\n@press ok\n@answer ok\n@select 2001 1\n@press ok\n", 0, "请选择试样编号"},
        {"CGRDX\n@press ok\n@press cancel\n@answer ok\n@answer ok\n", 1, "not asked for"},
        {"MOVE 0,0 1,1 2,2\n", 1, ""},
    };
    for (const auto& row : rows) {
        const ProgramResult run = Run(row.script);
        EXPECT_EQ(run.status, row.status) << row.script << run.errors;
        EXPECT_THAT(run.errors, HasSubstr(row.said)) << row.script;
    }
    std::ofstream(suite_.Folder() / "project.ini") << "[Project]\nGCSY=-1\n";
    EXPECT_EQ(Run("CGRDX\n").status, 1);
}

TEST_F(ScriptTest, LinesOfAStreamAreRunAsTheyArrive) {
    const std::string curve = CurveOf(Run("CGRDX\n@select 2001 1\n@press ok\n"));
    // Each line is written only when the program has told what the lines before have made.
    const ProgramResult run =
        RunProgram({"timeout", "30", "sh", "-c",
                    "cd $2; mkfifo in out; $0 script - -s $1 < in > out & exec 3> in 4< out;"
                    "printf 'CGRDX\\n@select 2001 1\\n@press ok\\n' >&3; read made <&4; echo $made;"
                    "printf 'MOVE %s\\n0,0\\n1,1\\nCLOSE\\n@answer no\\n' $3 >&3;"
                    "printf 'NEW\\nSAVEAS made\\n' >&3; read made <&4; echo $made;"
                    "exec 3>&-; wait $!",
                    GRDX_PROGRAM, folder_, scratch_.Path(), curve});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(run.errors, HasSubstr("Save the changes"));
    EXPECT_THAT(run.output, HasSubstr("KFZK1-1.dwg\n" + scratch_.Path().string() + "/made.dwg\n"));
}
