#include "src/frame/chart_driver.h"

#include "platform/ed/user_break.h"
#include "src/facts/control_ids.h"
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

}  // namespace
