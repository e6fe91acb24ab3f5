#include "src/ui/CKefenSheet.h"

#include "platform/mfc/ListBoxModel.h"
#include "src/facts/control_ids.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

using Texts = std::vector<std::string>;

class CKefenSheetTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        ChartMode = kSampleCharts;
        ProjectContext.GCSY = 1;
        ProjectContext.GCBH = "GC1";
        AddSample("ZK1", "1");
    }
};

TEST_F(CKefenSheetTest, ShowsThePluginsIconAndNeitherApplyNorHelp) {
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        const auto& sheet = static_cast<mfc::SheetModel&>(window);
        EXPECT_FALSE(sheet.HasApply() || sheet.HasHelp());
        EXPECT_NE(mfc::IconPicture(sheet.Icon(true)), "");
        EXPECT_EQ(sheet.Icon(true), sheet.Icon(false));
        return {Press(IDCANCEL)};
    });
    CKefenSheet sheet("");
    sheet.DoModal();
}

TEST_F(CKefenSheetTest, ASelectionWithoutACurrentItemKeepsThePageOpen) {
    ChartMode = kLayerCharts;
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
    EXPECT_EQ(ReadText("project.ini").find("KFQX"), std::string::npos) << "no mark";
}

}  // namespace
