#include "src/frame/chart_openers.h"

#include "src/facts/control_ids.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;

using ChartOpenersTest = FrameFixture;

TEST_F(ChartOpenersTest, NeitherARefusedProjectNorABrowserWithoutAChoiceOpensAnything) {
    AddSample("ZK1", "1");
    LastSheetPath = "of an earlier run";
    Then({Press(IDCANCEL)});
    RunCommand("EGRDX");
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        LastSheetPath.clear();
        window.End(IDOK);  // past the browser's own check
        return {};
    });
    RunCommand("ELGRDX");
    EXPECT_EQ(Boxes(), Texts{"文件名不能为空!"});
    WriteProject("GCSY=1\r\nGCSJ=1\r\n");
    RunCommand("EGRDX");
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(Boxes().size(), 1U);
}

}  // namespace
