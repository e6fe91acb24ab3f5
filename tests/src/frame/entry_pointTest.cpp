#include "src/frame/entry_point.h"

#include "platform/ed/AcEditor.h"
#include "platform/rx/AcRxDictionary.h"
#include "src/entity/CKFCurve.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

class EntryPointTest : public FrameFixture {
protected:
    static std::vector<std::string> CommandNames() {
        std::vector<std::string> names;
        for (const AcEdCommand& command : acedRegCmds->commands()) {
            names.push_back(command.group + "." + command.globalName + ":" +
                            std::to_string(command.flags));
        }
        return names;
    }
};

TEST_F(EntryPointTest, LoadingAddsPathsClassCommandsAndReactor) {
    EXPECT_EQ(CommandNames(),
              (std::vector<std::string>{"GRDX.CGRDX:0", "GRDX.CLGRDX:0", "GRDX.EGRDX:2097152",
                                        "GRDX.ELGRDX:2097152", "GRDX.SGRDX:0"}));
    EXPECT_NE(CKFCurve::desc(), nullptr);
    EXPECT_EQ(MarkProfilePath, Path("marks.ini"));
    CurveDataChanged = 1;
    acedEditor->tellCommandWillStart("NEW");
    EXPECT_EQ(Boxes().size(), 1U) << "the reactor hears";
}

TEST_F(EntryPointTest, UnloadingTakesAllOfItAwayAndLoadingWorksAgain) {
    EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr), AcRx::kRetOK);
    EXPECT_TRUE(CommandNames().empty());
    EXPECT_EQ(CKFCurve::desc(), nullptr);
    CurveDataChanged = 1;
    acedEditor->tellCommandWillStart("NEW");
    EXPECT_TRUE(Boxes().empty());

    EXPECT_EQ(acrxEntryPoint(AcRx::kNullMsg, nullptr), AcRx::kRetOK);
    EXPECT_TRUE(CommandNames().empty()) << "other messages do nothing";
    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(CommandNames().size(), 5U);
}

TEST_F(EntryPointTest, CommandsWithoutADrawingOnlySetTheMode) {
    InApplicationContext([] { acDocManager->closeDocument(acDocManager->curDocument()); });
    for (const auto& [command, mode] : {std::pair("CLGRDX", 1), std::pair("CGRDX", 0),
                                        std::pair("ELGRDX", 1), std::pair("EGRDX", 0)}) {
        RunCommand(command);
        EXPECT_EQ(ChartMode, mode) << command;
    }
    EXPECT_TRUE(Windows().Shown().empty());
}

TEST_F(EntryPointTest, ARefusedGuardLeavesTheModeToTheLayerCommandOnly) {
    NewDocument();
    Windows().AddAnswer(Box(IDNO));
    RunCommand("CLGRDX");
    EXPECT_EQ(ChartMode, kChartModeNotSet);
    EXPECT_EQ(Utf8(Windows().Shown().back().caption), "生成土层颗分曲线");
    Windows().AddAnswer(Box(IDNO));
    RunCommand("CGRDX");
    EXPECT_EQ(ChartMode, kSampleCharts);
    EXPECT_EQ(Utf8(Windows().Shown().back().caption), "生成颗分试验曲线");
}

}  // namespace
