#include "src/ui/CGcbhSJPage.h"

#include "src/facts/control_ids.h"
#include "src/ui/CKefenSheet.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

using Texts = std::vector<std::string>;

class CGcbhSJPageTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        ChartMode = kLayerCharts;
        ProjectContext.GCSY = 1;
        ProjectContext.GCBH = "GC1";
        WriteProject("GCBH=GC1\r\n");
    }
};

TEST_F(CGcbhSJPageTest, ListsLayersByNumberAndKeepsTheirMarksWithTheProject) {
    AddLayer(2, 2);
    AddLayer(10, 0);
    AddLayer(2, 1);
    AddLayer(1, 0);
    Sql("INSERT INTO x_SheJi VALUES (1,3,0,1104,'5'),(2,4,0,1105,'5')");
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_LAYERS), (Texts{"1", "2-1", "2-2", "10"}));
        return {Select(IDC_LAYERS, {"2-2", "1"}), Press(IDOK)};
    });
    CKefenSheet first("");
    EXPECT_EQ(first.DoModal(), IDOK);
    EXPECT_EQ(first.LayerPage().ChosenLayers(), (Texts{"1", "2-2"}));
    EXPECT_EQ(ReadText("project.ini"), "[Project]\r\nGCBH=GC1\r\n[CKFDlg]\r\nKFQXTCGC1=1@2-2\r\n");

    Then({Select(IDC_LAYERS, {"*2-2"}), Press(IDC_REMOVE_LAYER_MARKS)});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_LAYERS), (Texts{"*1", "2-1", "2-2", "10"}));
        return {Press(IDCANCEL)};
    });
    CKefenSheet second("");
    EXPECT_EQ(second.DoModal(), IDCANCEL);
    EXPECT_EQ(ReadText("project.ini"), "[Project]\r\nGCBH=GC1\r\n[CKFDlg]\r\nKFQXTCGC1=1\r\n");
}

TEST_F(CGcbhSJPageTest, ASelectionWithoutACurrentItemKeepsThePageOpen) {
    AddLayer(1, 0);
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        auto* const page = static_cast<mfc::SheetModel&>(window).ActiveDialog();
        auto* const layers = static_cast<mfc::ListBoxModel*>(page->Find(IDC_LAYERS));
        layers->Select(0, true);
        layers->SetCaret(-1);
        return {Press(IDOK), Press(IDCANCEL)};
    });
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(Boxes(), Texts{"请选择试样编号。"});
    EXPECT_EQ(ReadText("project.ini"), "[Project]\r\nGCBH=GC1\r\n") << "no mark";
}

TEST_F(CGcbhSJPageTest, WithoutLayersItAsksForOneAndSaysNothingAboutTheTable) {
    Sql("DROP TABLE x_SheJi");
    Then({Press(IDC_REMOVE_LAYER_MARKS), Press(IDOK), Press(IDCANCEL)});
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(Boxes(), (Texts{"请先选择土层,再删除!", "请选择试样编号"}));
}

}  // namespace
