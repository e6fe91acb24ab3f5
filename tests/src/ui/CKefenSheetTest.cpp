#include "src/ui/CKefenSheet.h"

#include "platform/mfc/ButtonModel.h"
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

    static mfc::Answer ChooseSample() { return Select(IDC_SAMPLES, {"1"}); }

    static mfc::WindowModel* Control(mfc::FrameModel& window, int id) {
        return static_cast<mfc::SheetModel&>(window).ActiveDialog()->Find(id);
    }
};

TEST_F(CKefenSheetTest, AFirstRunHasEverythingOffAndLeavesAllTenKeys) {
    Then({ChooseSample(), Press(IDOK)});
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(ReadText("settings.ini"),
              "[CKFDlg]\r\nbZB=0\r\nbJWKX=0\r\nbBFHL=0\r\nbWCDW=0\r\nbSYZ=0\r\nbJCZ=0\r\nbRQ=0\r\n"
              "sWCDW=\r\nsSYZ=\r\nsJCZ=\r\n");
    EXPECT_FALSE(OuterFrameOption || RightAxisOption || Annotation.dateChecked);
    EXPECT_EQ(Annotation.date, win32::Now());
}

TEST_F(CKefenSheetTest, WhatIsChosenIsModuleWideAndComesBackInTheNextRun) {
    Then({ChooseSample(), Page(IDD_OPTIONS), Check(IDC_OUTER_FRAME, true), Page(IDD_ANNOTATION),
          Type(IDC_UNIT, "某院"), Check(IDC_UNIT_CHECK, true), Type(IDC_TESTER, "丂丄"),
          Type(IDC_CHECKER, "a=b;c"), Check(IDC_CHECKER_CHECK, true), Type(IDC_DATE, "2024-02-29"),
          Check(IDC_DATE_CHECK, true), Press(IDOK)});
    CKefenSheet first("");
    EXPECT_EQ(first.DoModal(), IDOK);

    Annotation = {};
    OuterFrameOption = false;
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(static_cast<mfc::SheetModel&>(window).ActiveDialog()->Number(), IDD_SAMPLE_PAGE);
        return {Page(IDD_ANNOTATION)};
    });
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Utf8(Control(window, IDC_UNIT)->Text()), "某院");
        EXPECT_TRUE(static_cast<mfc::ButtonModel*>(Control(window, IDC_DATE_CHECK))->Checked());
        return {Press(IDCANCEL)};
    });
    const std::string stored = ReadText("settings.ini");
    CKefenSheet second("");
    EXPECT_EQ(second.DoModal(), IDCANCEL);
    EXPECT_EQ(ReadText("settings.ini"), stored);
    EXPECT_TRUE(OuterFrameOption && !RightAxisOption)
        << "taken over without the page being looked at";
    EXPECT_TRUE(Annotation.unitChecked && !Annotation.testerChecked && Annotation.checkerChecked);
    EXPECT_EQ(Utf8(Annotation.tester), "丂丄");
    EXPECT_EQ(Annotation.checker, "a=b;c");
    EXPECT_EQ(Annotation.date, win32::Now()) << "the date is not kept";
}

TEST_F(CKefenSheetTest, SampleChartsKeepTheRecomputeSettingButDoNotOfferIt) {
    WriteText("settings.ini", "[CKFDlg]\r\nbBFHL=1\r\n");
    Then({ChooseSample(), Page(IDD_OPTIONS)});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_FALSE(Control(window, IDC_RECOMPUTE)->Enabled());
        return {Press(IDOK)};
    });
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_NE(ReadText("settings.ini").find("bBFHL=1\r\n"), std::string::npos);
}

TEST_F(CKefenSheetTest, AStoredTextIsCutTo49BytesAtAWholeCharacter) {
    WriteText("settings.ini", "[CKFDlg]\r\nsWCDW=" + std::string(60, 'x') +
                                  "\r\nsSYZ=" + std::string(48, 'y') + "单位\r\n");
    Then({Press(IDCANCEL)});
    CKefenSheet sheet("");
    sheet.DoModal();
    EXPECT_EQ(Annotation.unit, std::string(49, 'x'));
    EXPECT_EQ(Annotation.tester, std::string(48, 'y'));
}

TEST_F(CKefenSheetTest, OkWithoutASelectionBringsTheSelectionPageBack) {
    Then({Page(IDD_ANNOTATION), Type(IDC_UNIT, "x"), Press(IDOK)});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(static_cast<mfc::SheetModel&>(window).ActiveDialog()->Number(), IDD_SAMPLE_PAGE);
        return {Press(IDCANCEL)};
    });
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(Boxes(), Texts{"请选择试样编号"});
    EXPECT_FALSE(std::filesystem::exists(Folder() / "settings.ini"));
}

TEST_F(CKefenSheetTest, SamplesThatCannotHaveASheetAreNamedAndMayBeLeftOut) {
    AddSample("ZK1", "Ａ");
    AddSample("ZK1", "ａ");
    AddSample("ZK1", "3@1");
    Then({Select(IDC_SAMPLES, {"1", "Ａ"}), Page(IDD_ANNOTATION), Press(IDOK)});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(static_cast<mfc::SheetModel&>(window).ActiveDialog()->Number(), IDD_SAMPLE_PAGE);
        EXPECT_EQ(Items(window, IDC_SAMPLES).front(), "Ａ") << "not marked";
        return {Select(IDC_SAMPLES, {"Ａ", "3@1"}), Press(IDOK)};
    });
    Then({Select(IDC_SAMPLES, {"3@1"}), Press(IDOK)});
    CKefenSheet sheet("");
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(Boxes(), (Texts{"不能出图，请修改以下编号后再试此功能！\n"
                              "钻孔“ZK1”试样“Ａ”与钻孔“ZK1”试样“ａ”的图形文件同名：KFZK1-Ａ.dwg",
                              "不能出图，请修改以下编号后再试此功能！\n"
                              "试样编号“3@1”含有字符“@”"}));
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK1=1\r\n");
}

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

}  // namespace
