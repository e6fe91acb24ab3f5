#include "src/chart/cumulative_chart.h"

#include "src/chart/sheet_layout.h"
#include "tests/src/chart/ChartFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CumulativeChart : public ChartFixture {
protected:
    void SetUp() override {
        ChartFixture::SetUp();
        ProjectContext.GCBZ = 2;
        PlaceCumulativeChart(0);
    }
};

const std::vector<TestProject::Item> kItems{{60, 0},    {20, 50},    {5, 100}, {2, 150},
                                            {0.5, 100}, {0.075, 40}, {0, 10}};

TEST_F(CumulativeChart, FirstCellOfASheet) {
    project_.AddSample("5", 500, kItems);
    project_.Sql("INSERT INTO z_c_QuYang VALUES(1, 'ZK3', '5', 1.2, 0.2)");
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    // The grid is 48 … 208 × 211 … 276, a decade 160 / 5.30103 = 30.1828 long.
    ExpectDrawn("cumulative");
    EXPECT_EQ(ChartTextHeight, 3.0);
    EXPECT_EQ(ChartLineGap, 1.0);
    EXPECT_THAT(messages_.Boxes(), IsEmpty());
}

TEST_F(CumulativeChart, ResultsAreStored) {
    project_.AddSample("5", 300, StraightItems());
    project_.Sql("INSERT INTO z_c_QuYang VALUES(1, 'ZK3', '5', 1.2, 0)");
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(Drawn("text 175.2"), ElementsAre("text 175.2,280.4 h3.2 :")) << "no thickness";
    EXPECT_THAT(project_.Sql("SELECT round(KLD95,3), round(KLD85,3), round(KLD60,3),"
                             "round(KLD50,3), round(KLD30,3), round(KLD15,3), round(KLD10,3),"
                             "round(KLD90,3), round(KLBJXS,3), round(KLQLXS,3), round(KL2,3),"
                             "KL20, KLSYFF FROM Z_c_KeFen"),
                ElementsAre("14.159|7.096|1.262|0.632|0.159|0.056|0.04|10.024|31.55|0.501|33.333|"
                            "0.0|筛分法"));
}

TEST_F(CumulativeChart, WideAxisForSizesAbove100) {
    project_.AddSample("5", 500, {{100, 100}, {60, 100}, {0.075, 100}});
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_EQ(CountDrawn("line"), 11U + 1U + 50U + 10U);

    AcDbDatabase wide;
    project_.AddSample("6", 500, {{200, 100}, {60, 100}, {0.075, 100}});
    ASSERT_EQ(DrawCumulativeChart(tools_, &wide), 1);
    // X(1000) = 48 + log 2 × 160 / 6.30103, less a third of four characters
    EXPECT_THAT(Dump(wide), Contains("text 52.844,207.3 h2.4 1000"));
    EXPECT_EQ(Dump(wide).size(), Drawn().size() + 10U + 1U) << "one decade more";
}

TEST_F(CumulativeChart, RightAxisIsOptional) {
    project_.AddSample("5", 500, kItems);
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    RightAxisOption = true;
    AcDbDatabase both;
    ASSERT_EQ(DrawCumulativeChart(tools_, &both), 1);
    EXPECT_EQ(Dump(both).size(), Drawn().size() + 11U + 1U);
    EXPECT_THAT(Dump(both), testing::IsSupersetOf(
                                {"text 210,274.8 h2.4 0", "text 210,209.8 h2.4 100",
                                 "text 219,223.9 h4 大于某粒径的土质量百分比数(%) turned 1.571"}));
}

TEST_F(CumulativeChart, UnusableDataDrawNothing) {
    const std::string overshoot = "筛余质量的和大于试样的总质量，请检查数据表中的数据！";
    const std::tuple<const char*, double, std::vector<TestProject::Item>, std::string> cases[] = {
        {"heavy", 100, {{2, 60}, {0.5, 40.1}}, overshoot},
        {"weightless", 0, {{2, 0}}, overshoot},
        {"without items", 100, {}, "请在数据表中输入数据"},
    };
    for (const auto& [sample, total, items, box] : cases) {
        const RecordedMessages messages;
        project_.AddSample(sample, total, items);
        EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0) << sample;
        EXPECT_THAT(messages.Boxes(), ElementsAre(box)) << sample;
    }
    CurrentSample = "unknown";
    EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), IsEmpty());

    project_.Sql("DROP TABLE Z_c_KeFen");
    EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), ElementsAre("不能打开颗分试验表!请检查!"));
    EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(CumulativeChart, LayersAreDrawnFromTheirFractions) {
    project_.AddLayer({{1105, "25"}, {1109, "40"}, {1118, "35"}});
    ASSERT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 1);
    ExpectDrawn("cumulative_layer");
    EXPECT_THAT(project_.Sql("SELECT CSLX FROM x_SheJi WHERE CSLX > 1118 ORDER BY CSLX"),
                ElementsAre("1122", "1123"))
        << "d50 and d60 are all that the curve reaches";

    CurrentMainLayer = "9";
    EXPECT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), IsEmpty());
    EXPECT_EQ(messages_.CommandLine(), "");
}

TEST_F(CumulativeChart, ALayerWithNothingButTheFinestClassHasNoCurve) {
    project_.AddLayer({{1118, "100"}});
    ASSERT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 1);
    EXPECT_EQ(CountDrawn("circle"), 0U);
    EXPECT_THAT(CurveLabels(), testing::Each(HasSubstr("text  at "))) << "empty values";
}

}  // namespace
