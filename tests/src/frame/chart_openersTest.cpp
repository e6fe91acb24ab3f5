#include "src/frame/chart_openers.h"

#include "src/facts/control_ids.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;

class ChartOpenersTest : public FrameFixture {
protected:
    void SetUp() override {
        FrameFixture::SetUp();
        AddSample("ZK1", "1");
        std::filesystem::create_directories(Folder() / "output/GC1/室内曲线");
        for (const char* name : {"KFZK1-1", "KFZK1-2~ZK1-3", "KFSJ1", "KFSJ2"}) {
            MakeDrawing("output/GC1/室内曲线/" + std::string(name) + ".dwg");
        }
    }
};

TEST_F(ChartOpenersTest, OpensTheChosenSheetsOfTheProjectInMultiDocumentMode) {
    Then({Select(IDC_SHEETS, {"试样ZK1-1", "试样ZK1-2和ZK1-3"}), Press(IDOK)});
    RunCommand("EGRDX");
    EXPECT_EQ(ProjectContext.GCBH, "GC1") << "also before any chart command has run";
    EXPECT_EQ(acDocManager->documentCount(), 3);
    EXPECT_EQ(CurrentDrawing(), "KFZK1-2~ZK1-3.dwg");

    Then([this](mfc::FrameModel&) -> std::vector<mfc::Answer> {
        std::filesystem::remove(Folder() / "output/GC1/室内曲线/KFSJ1.dwg");
        return {Select(IDC_SHEETS, {"土层1", "土层2"}), Press(IDOK)};
    });
    RunCommand("ELGRDX");
    EXPECT_EQ(CurrentDrawing(), "KFSJ2.dwg");
    EXPECT_EQ(acDocManager->documentCount(), 4) << "what was open stays";
    EXPECT_NE(Printed().find("KFSJ1.dwg: No such file"), std::string::npos);
}

TEST_F(ChartOpenersTest, SingleDocumentModeOpensTheFirstOnly) {
    SetDocumentMode(1);
    Then({Select(IDC_SHEETS, {"土层1", "土层2"}), Press(IDOK)});
    RunCommand("ELGRDX");
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(CurrentDrawing(), "KFSJ1.dwg");
    EXPECT_EQ(acDocManager->takePendingInput(), "zoom e ");
    EXPECT_EQ(Printed(), "当前是单文档状态,只能打开一个文档");
}

TEST_F(ChartOpenersTest, NeitherARefusedProjectNorABrowserWithoutAChoiceOpensAnything) {
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
