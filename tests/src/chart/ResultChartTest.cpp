#include "src/chart/result_chart.h"

#include "tests/src/chart/ChartFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResultChart : public ChartFixture {
protected:
    void SetUp() override {
        ChartFixture::SetUp();
        ChartOriginX = 30.0;
        ChartOriginY = 268.75;
        FrameWidth = 175.0;
        FrameHeight = 250.0;
    }
};

/// Ten sieves, the coarsest empty; 100 of 1000 on none of them.
const std::vector<TestProject::Item> kTenSieves{{60, 0},     {40, 100},   {20, 100}, {10, 100},
                                                {5, 100},    {2, 100},    {1, 100},  {0.5, 100},
                                                {0.25, 100}, {0.075, 100}};

TEST_F(ResultChart, CompactForm) {
    project_.AddSample("5", 1000, kTenSieves, "比重计法");
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    EXPECT_EQ(win32::Utf8FromGbk(CurrentMethod), "比重计法");
    // The grid is 57.5 … 177.5 × 190.75 … 240.75, the table 52.4 … 182.6 × 144.95 … 172.95 with
    // columns of 8.4: three of cobbles, three of gravel, four of sand. Nothing at 90 % and for the
    // empty sieve.
    ExpectDrawn("result_compact");
}

TEST_F(ResultChart, LongFormHasTheIndexBlockBelow) {
    std::vector<TestProject::Item> items;
    for (double size : {400.0, 200.0, 60.0, 40.0, 20.0, 10.0, 5.0, 2.0, 0.5, 0.25, 0.1, 0.075, 0.05,
                        0.01, 0.005, 0.002}) {
        items.push_back({size, 10});
    }
    project_.AddSample("5", 160, items);
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    ExpectDrawn("result_long");
}

TEST_F(ResultChart, NamesOfSingleColumnsAreCompact) {
    project_.AddSample("5", 100, {{5, 10}, {0.5, 20}, {0.075, 20}, {0.002, 50}});
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    ExpectDrawn("result_single_columns");
}

TEST_F(ResultChart, SoilClassFollowsTheShownPercentages) {
    // Half of the mass is above 2 mm, a little more once the percentages are raised towards 100.
    project_.AddSample("5", 1000, kTenSieves);
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    EXPECT_THAT(Drawn("text 150.58,148.95"), ElementsAre("text 150.58,148.95 h3 圆砾"));
    EXPECT_THAT(project_.Sql("SELECT KL40, KL_075 FROM Z_c_KeFen"), ElementsAre("10.0|10.0"))
        << "the store has the masses as loaded";
}

TEST_F(ResultChart, RefusedDataLeaveTheMethodAlone) {
    CurrentMethod = "before";
    project_.AddSample("5", 10, kTenSieves);
    EXPECT_EQ(DrawResultChart(tools_, &sheet_), 0);
    EXPECT_EQ(messages_.Boxes().size(), 1U);
    EXPECT_THAT(Drawn(), IsEmpty());
    EXPECT_EQ(CurrentMethod, "before");
}

TEST_F(ResultChart, LayersShowTheirFractions) {
    project_.AddLayer({{1105, "25"}, {1109, "40"}, {1118, "35"}});
    CurrentMethod = "before";
    ASSERT_EQ(DrawLayerResultChart(tools_, &sheet_), 1);
    EXPECT_EQ(CurrentMethod, "before");
    ExpectDrawn("result_layer");
    EXPECT_EQ(messages_.CommandLine(), "");
}

}  // namespace
