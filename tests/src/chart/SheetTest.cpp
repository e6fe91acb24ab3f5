#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/win32/clock.h"
#include "platform/win32/gbk_literal.h"
#include "src/chart/sheet_layout.h"
#include "tests/src/chart/ChartFixture.h"
#include "tests/src/chart/FoundFonts.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

class Sheet : public ChartFixture {
protected:
    void SetUp() override {
        ChartFixture::SetUp();
        ProjectContext.GCMC = "某工程"_gbk;
        Annotation.unit = "某院"_gbk;
        Annotation.tester = "张三"_gbk;
        Annotation.checker = "李四"_gbk;
        std::tm day{};
        day.tm_year = 2003 - 1900;
        day.tm_mon = 3;
        day.tm_mday = 9;
        Annotation.date = win32::TimeFromLocal(day);
    }
    static void CheckEverything() {
        Annotation.unitChecked = Annotation.testerChecked = Annotation.checkerChecked =
            Annotation.dateChecked = true;
    }

    FoundFonts fonts_{project_.Folder().string()};
};

std::string StyleName(AcDbObjectId id) {
    return dynamic_cast<const AcDbTextStyleTableRecord&>(*AcDbDatabase::objectOf(id)).name();
}

TEST_F(Sheet, ResultSheetFrameHeaderAndFooter) {
    CheckEverything();
    ASSERT_EQ(SetUpChartLayer(tools_, &sheet_), 1);
    DrawResultSheet(tools_, &sheet_);
    ExpectDrawn("result_sheet");
    EXPECT_EQ(FrameWidth, 175.0);
    EXPECT_EQ(ChartOriginY, kUpperChartY);

    VisitModelSpace(sheet_, [](const AcDbEntity& entity) {
        if (const auto* text = dynamic_cast<const AcDbText*>(&entity)) {
            const bool isTitle = text->position().y > 270;
            EXPECT_EQ(StyleName(text->textStyle()), isTitle ? "KX_FONT" : "QV_FONT");
        }
        const auto* layer =
            dynamic_cast<const AcDbLayerTableRecord*>(AcDbDatabase::objectOf(entity.layerId()));
        EXPECT_STREQ(layer->name(), "ZZT_TC");
    });
    EXPECT_EQ(StyleName(QvFontStyleId), "QV_FONT");

    DrawTestMethods(tools_, &sheet_, "筛分法,比重计法"_gbk);
    EXPECT_THAT(Drawn(), Contains("text 117.5,257.75 h4 试验方法"));
}

TEST_F(Sheet, ResultSheetWithTheCheckersNameOnly) {
    OuterFrameOption = true;
    Annotation.checkerChecked = true;
    DrawResultSheet(tools_, &sheet_);
    ExpectDrawn("result_sheet_one_name");
}

TEST_F(Sheet, CumulativeSheetTitleBlock) {
    OuterFrameOption = true;
    CheckEverything();
    DrawCumulativeSheet(tools_, &sheet_);
    ExpectDrawn("cumulative_sheet");
    EXPECT_EQ(StyleName(QvFontStyleId), "QV_FONT");
}

TEST_F(Sheet, CumulativeSheetTemplateIsInsertedWhenFound) {
    DrawCumulativeSheet(tools_, &sheet_);
    EXPECT_THAT(Drawn(), ElementsAre(StartsWith("text 142")));

    AcDbDatabase frame;
    tools_.DrawLine(0, 0, 0.42, 0, &frame);
    ASSERT_EQ(frame.saveAs((project_.Folder() / "gltka3.dwg").c_str()), Acad::eOk);
    AcDbDatabase sheet;
    DrawCumulativeSheet(tools_, &sheet);
    EXPECT_THAT(Dump(sheet), ElementsAre("block 0,0 s1000", StartsWith("text 142")));
}

TEST_F(Sheet, CumulativeChartsStandInThreeRowsOfTwo) {
    const std::tuple<int, double, double> cases[] = {
        {0, 48, 280}, {1, 242, 280}, {2, 48, 191.5}, {5, 242, 103}, {9, 242, 191.5}};
    for (const auto& [chart, x, y] : cases) {
        PlaceCumulativeChart(chart);
        EXPECT_EQ(ChartOriginX, x) << chart;
        EXPECT_EQ(ChartOriginY, y) << chart;
    }
}

TEST_F(Sheet, AStyleThatCannotBeMadeIsNotTheLastSheets) {
    SetUpChartTextStyle(tools_, &sheet_);
    EXPECT_FALSE(QvFontStyleId.isNull());
    ed::LoadFontMapping("");
    AcDbDatabase next;
    SetUpChartTextStyle(tools_, &next);
    EXPECT_TRUE(QvFontStyleId.isNull());
    EXPECT_THAT(messages_.Boxes(), ElementsAre("未找到形文件ComFont.shx"));
}

}  // namespace
