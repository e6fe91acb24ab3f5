#include "src/ui/CChartBrowser.h"

#include "platform/mfc/afx.h"
#include "src/facts/control_ids.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

using Texts = std::vector<std::string>;

class CChartBrowserTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        AfxSetResourceHandle(ExtensionModule.ModuleResourceInstance());
        ProjectContext.GCSY = 1;
        std::filesystem::create_directory(Folder() / "charts");
        charts_ = Gbk((Folder() / "charts").string() + "/");
    }
    void TearDown() override {
        AfxSetResourceHandle(nullptr);
        ProjectFixture::TearDown();
    }
    void AddFiles(const Texts& names) const {
        for (const std::string& name : names) {
            std::ofstream(Folder() / "charts" / name) << "x";
        }
    }

    std::string charts_;
};

TEST_F(CChartBrowserTest, ListsTheSheetsJustMadeAndGivesBackTheirNames) {
    OpenedFromChartCommand = 1;
    CurrentBorehole = "ZK3";
    MadeSheets = {"KFZK3-1~ZK3-2.dwg", "KFZK3-3.dwg", Gbk("KFZK3-和4.dwg")};
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_BROWSER_BOREHOLES), Texts{"ZK3"});
        EXPECT_EQ(Items(window, IDC_SHEETS),
                  (Texts{"试样ZK3-1和ZK3-2", "试样ZK3-3", "试样ZK3-和4"}));
        return {Select(IDC_SHEETS, {"试样ZK3-和4", "试样ZK3-1和ZK3-2"}), Press(IDOK)};
    });
    CSampleBrowser browser(charts_);
    EXPECT_EQ(browser.DoModal(), IDOK);
    EXPECT_EQ(Utf8(LastSheetPath), "KFZK3-1~ZK3-2|KFZK3-和4");
    EXPECT_EQ(OpenedFromChartCommand, 0);
}

TEST_F(CChartBrowserTest, FindsTheSheetsOfTheChosenBorehole) {
    AddSample("ZK2", "1");
    AddSample("ZK1", "1");
    AddSample("ZK3/../../elsewhere", "1");
    WriteText("elsewhere.dwg", "x");
    std::filesystem::create_directory(Folder() / "charts" / "KFZK3");
    AddFiles({"KFZK1-1.dwg", "KFZK2-2.dwg", "KFZK2-1~ZK2-3.dwg", "KFZK2.txt", "other.dwg"});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(CurrentBorehole, "ZK1");
        EXPECT_EQ(Items(window, IDC_SHEETS), Texts{"试样ZK1-1"});
        return {Select(IDC_BROWSER_BOREHOLES, {"ZK3/../../elsewhere"})};
    });
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SHEETS), Texts{}) << "a name leads to no other folder";
        return {Select(IDC_BROWSER_BOREHOLES, {"ZK2"})};
    });
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SHEETS), (Texts{"试样ZK2-1和ZK2-3", "试样ZK2-2"}));
        return {Press(IDOK), Select(IDC_SHEETS, {"试样ZK2-2"}), Press(IDOK)};
    });
    CSampleBrowser browser(charts_);
    EXPECT_EQ(browser.DoModal(), IDOK);
    EXPECT_EQ(LastSheetPath, "KFZK2-2");
    EXPECT_EQ(Boxes(), Texts{"请选择需要编辑的试样号。"});
}

TEST_F(CChartBrowserTest, WithoutABoreholeOrATableNothingCanBeChosen) {
    Sql("DROP TABLE Z_c_KeFenCSXM");
    Then({Press(IDOK), Press(IDCANCEL)});
    CSampleBrowser browser(charts_);
    EXPECT_EQ(browser.DoModal(), IDCANCEL);
    EXPECT_EQ(Boxes(), (Texts{"不能打开颗分试验项目表,请检查数据!", "请选择钻孔编号."}));
}

TEST_F(CChartBrowserTest, ListsLayerSheetsOfTheFolderOrJustMade) {
    AddFiles({"KFSJ2-1~3.dwg", "KFSJ1.dwg", "KFZK1-1.dwg"});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SHEETS), (Texts{"土层1", "土层2-1和3"}));
        return {Press(IDOK), Select(IDC_SHEETS, {"土层1", "土层2-1和3"}), Press(IDOK)};
    });
    CLayerBrowser browser(charts_);
    EXPECT_EQ(browser.DoModal(), IDOK);
    EXPECT_EQ(LastSheetPath, "KFSJ1|KFSJ2-1~3");
    EXPECT_EQ(Boxes(), Texts{"请选择需要编辑的试样号。"});

    OpenedFromChartCommand = 1;
    MadeSheets = {"KFSJ9.dwg"};
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SHEETS), Texts{"土层9"});
        return {Press(IDCANCEL)};
    });
    CLayerBrowser made(charts_);
    EXPECT_EQ(made.DoModal(), IDCANCEL);
}

}  // namespace
