#include "src/frame/chart_driver.h"

#include "platform/ed/user_break.h"
#include "src/facts/control_ids.h"
#include "tests/src/chart/SheetDump.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;

class ChartDriverTest : public FrameFixture {
protected:
    void SetUp() override {
        FrameFixture::SetUp();
        WriteText("settings.ini", "[MDI]\r\nMDIMODE=0\r\n");
    }
    void AddSamples(int count) const {
        for (int i = 1; i <= count; ++i) {
            AddSample("ZK3", std::to_string(i));
        }
    }
    static Texts Numbers(int count) {
        Texts numbers;
        for (int i = 1; i <= count; ++i) {
            numbers.push_back(std::to_string(i));
        }
        return numbers;
    }
    void ThenDraw(const Texts& samples) { Then({Select(IDC_SAMPLES, samples), Press(IDOK)}); }
    /// Takes part of the mass away that the sieve items of a sample need.
    void SpoilSample(const std::string& sample) const {
        Sql("UPDATE Z_c_KeFen SET KLTYZL=1 WHERE QYBH='" + sample + "'");
    }
    bool HasResults(const std::string& sample) const {
        return Sql("SELECT COUNT(KLD60) FROM Z_c_KeFen WHERE QYBH='" + sample + "'").front() == "1";
    }
    void ExpectStopped(const Texts& sheets) {
        EXPECT_EQ(Sheets(), sheets);
        EXPECT_EQ(acDocManager->documentCount(), 1);
        EXPECT_EQ(DocumentMode(), 0) << "restored";
    }
};

TEST_F(ChartDriverTest, OneSampleMakesOneSheetWhichIsOpenAtTheEnd) {
    AddSample("ZK3", "5");
    ThenDraw({"5"});
    RunCommand("CGRDX");
    EXPECT_EQ(Sheets(), Texts{"KFZK3-5.dwg"});
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(CurrentDrawing(), "KFZK3-5.dwg");
    EXPECT_EQ(acDocManager->takePendingInput(), "zoom e ");
    EXPECT_EQ(DocumentMode(), 0);
    EXPECT_TRUE(HasResults("5"));
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(Printed(), "");
}

TEST_F(ChartDriverTest, ThreeSamplesMakeTwoSheetsAndTheBrowserOverThem) {
    AddSamples(3);
    ThenDraw(Numbers(3));
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SHEETS), (Texts{"试样ZK3-1和ZK3-2", "试样ZK3-3"}));
        return {Select(IDC_SHEETS, {"试样ZK3-1和ZK3-2"}), Press(IDOK)};
    });
    RunCommand("CGRDX");
    EXPECT_EQ(Sheets(), (Texts{"KFZK3-1~ZK3-2.dwg", "KFZK3-3.dwg"}));
    EXPECT_EQ(CurrentDrawing(), "KFZK3-1~ZK3-2.dwg");
    EXPECT_EQ(DocumentMode(), 0);
    const Texts sheet = Dump(*acDocManager->curDocument()->database());
    for (const char* line : {"text 32,252.25 h4 试样编号", "text 32,135.5 h4 试样编号",
                             "text 117.5,257.75 h4 试验方法"}) {
        EXPECT_EQ(std::count(sheet.begin(), sheet.end(), line), 1) << line;
    }
    EXPECT_EQ(std::count(sheet.begin(), sheet.end(), "CKFCurve"), 2);
}

TEST_F(ChartDriverTest, ASheetNamesDifferentMethodsOnce) {
    struct Row {
        const char* second;
        const char* line;
    };
    AddSample("ZK3", "1", "筛析法a");
    AddSample("ZK3", "2");
    for (const Row& row : {Row{"密度计法", "筛析法a,密度计法"}, Row{"筛析法A", "筛析法a"}}) {
        Sql(std::string("UPDATE Z_c_KeFen SET KLSYFF='") + row.second + "' WHERE QYBH='2'");
        ThenDraw({"1", "2"});
        RunCommand("CGRDX");
        EXPECT_EQ(Utf8(CurrentMethod), row.line);
    }
    EXPECT_EQ(Sheets(), Texts{"KFZK3-1~ZK3-2.dwg"}) << "the second run replaces the sheet";
}

TEST_F(ChartDriverTest, StandardTwoPutsSixSamplesOnASheet) {
    WriteProject("GCSY=1\r\nGCBH=GC1\r\nGCBZ=2\r\nGCSJ=0\r\n");
    AddSamples(7);
    ThenDraw(Numbers(6));
    RunCommand("CGRDX");
    EXPECT_EQ(CurrentDrawing(), "KFZK3-1_ZK3-6.dwg") << "one sheet";

    ThenDraw(Numbers(7));
    Then({Press(IDCANCEL)});
    RunCommand("CGRDX");
    EXPECT_EQ(Sheets(), (Texts{"KFZK3-1_ZK3-6.dwg", "KFZK3-7.dwg"}));
    EXPECT_EQ(MadeSheets, Sheets());
}

TEST_F(ChartDriverTest, LayersAreNamedByTheirLabels) {
    for (int layer : {1, 2, 3}) {
        AddLayer(layer, layer == 1 ? 0 : 1);
    }
    CurrentMethod = "of an earlier sample";
    Then({Select(IDC_LAYERS, {"1", "2-1", "3-1"}), Page(IDD_OPTIONS), Check(IDC_RECOMPUTE, true),
          Press(IDOK)});
    Then({Select(IDC_SHEETS, {"土层3-1"}), Press(IDOK)});
    RunCommand("CLGRDX");
    EXPECT_EQ(Sheets(), (Texts{"KFSJ1~2-1.dwg", "KFSJ3-1.dwg"}));
    EXPECT_EQ(CurrentDrawing(), "KFSJ3-1.dwg");
    EXPECT_EQ(CurrentMainLayer + "/" + CurrentSubLayer, "3/1");
    EXPECT_EQ(CurrentMethod, "");
    EXPECT_TRUE(RecomputePercentages);

    WriteText("project.ini", "[Project]\r\nGCSY=1\r\nGCBH=GC1\r\nGCBZ=2\r\nGCSJ=0\r\n");
    Then({Select(IDC_LAYERS, {"1"}), Press(IDOK)});
    RunCommand("CLGRDX");
    EXPECT_EQ(CurrentDrawing(), "KFSJ1.dwg");
    EXPECT_EQ(CurrentMainLayer + "/" + CurrentSubLayer, "1/0");
}

TEST_F(ChartDriverTest, ARefusedProjectEndsBeforeAnythingIsTouched) {
    WriteProject("GCSY=-1\r\n");
    RunCommand("CGRDX");
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(ProjectContext.GCSY, 0);
    EXPECT_EQ(DocumentMode(), 1) << "as the guard left it";
}

TEST_F(ChartDriverTest, ACancelledSheetOnlyRestoresTheMode) {
    AddSample("ZK3", "1");
    Then({Select(IDC_SAMPLES, {"1"}), Press(IDCANCEL)});
    RunCommand("CGRDX");
    ExpectStopped({});
    EXPECT_NE(CurrentDrawing(), "Drawing.dwg");
    EXPECT_FALSE(std::filesystem::exists(Folder() / "marks.ini"));
}

TEST_F(ChartDriverTest, WithoutTheBlankDrawingNothingIsDrawn) {
    AddSample("ZK3", "1");
    std::filesystem::remove(Folder() / "Support/Drawing.dwg");
    ThenDraw({"1"});
    RunCommand("CGRDX");
    ExpectStopped({});
    EXPECT_FALSE(std::filesystem::exists(Folder() / "output"));
    EXPECT_FALSE(HasResults("1"));
}

TEST_F(ChartDriverTest, WithoutAChartFolderTheBlankDrawingStaysOpen) {
    AddSample("ZK3", "1");
    std::ofstream(Folder() / "output") << "a file in the way";
    ThenDraw({"1"});
    RunCommand("CGRDX");
    ExpectStopped({});
    EXPECT_EQ(Boxes(), Texts{"不能新建目录."});
    EXPECT_EQ(CurrentDrawing(), "Drawing.dwg");
}

TEST_F(ChartDriverTest, AChartThatFailsKeepsTheSheetsBeforeItAndOpensNothing) {
    AddSamples(4);
    SpoilSample("4");
    ThenDraw(Numbers(4));
    RunCommand("CGRDX");
    ExpectStopped({"KFZK3-1~ZK3-2.dwg"});
    EXPECT_EQ(CurrentDrawing(), "Drawing.dwg");
    EXPECT_EQ(Boxes().size(), 1U) << "the layout's own message";
}

TEST_F(ChartDriverTest, WhatThePersonEndsKeepsTheSheetsBefore) {
    AddSamples(5);
    int steps = 0;
    ed::SetBreakCheck([&steps] { return ++steps == 2; });
    ThenDraw(Numbers(5));
    RunCommand("CGRDX");
    ExpectStopped({"KFZK3-1~ZK3-2.dwg", "KFZK3-3~ZK3-4.dwg"});
    EXPECT_EQ(CurrentDrawing(), "Drawing.dwg");

    WriteProject("GCSY=1\r\nGCBH=GC2\r\nGCBZ=2\r\nGCSJ=0\r\n");
    AddSample("ZK3", "6");
    AddSample("ZK3", "7");
    steps = 1;
    ThenDraw(Numbers(7));
    RunCommand("CGRDX");
    EXPECT_EQ(MadeSheets, Texts{"KFZK3-1_ZK3-6.dwg"});
    ed::SetBreakCheck(nullptr);
}

TEST_F(ChartDriverTest, ASheetThatCannotBeSavedEndsTheRun) {
    AddSamples(3);
    std::filesystem::create_directories(Folder() / "output/GC1/室内曲线/KFZK3-3.dwg/in the way");
    ThenDraw(Numbers(3));
    RunCommand("CGRDX");
    EXPECT_EQ(MadeSheets, Texts{"KFZK3-1~ZK3-2.dwg"});
    EXPECT_EQ(CurrentDrawing(), "Drawing.dwg");
    EXPECT_EQ(DocumentMode(), 0);
    EXPECT_TRUE(Boxes().empty());
}

}  // namespace
