#include "src/chart/result_chart.h"

#include "tests/src/chart/ChartFixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
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
    // columns of 8.4: three of cobbles, three of gravel, four of sand.
    EXPECT_TRUE(StandInOrder(
        {"text 32,252.25 h4 试样编号", "text 43.2,252.65 h3.2 : ZK3-5",
         "text 109.1,246.75 h4 颗粒级配曲线", "line 57.5,240.75 177.5,240.75",
         "text 52.35,239.45 h2.4 100", "line 57.5,235.75 177.5,235.75",
         "line 57.5,230.75 177.5,230.75", "text 53.4,229.45 h2.4 80",
         "line 57.5,190.75 177.5,190.75", "line 57.5,240.75 57.5,190.75",
         "text 50.5,196.15 h4 小于某粒径的土质量百分比数(%) turned 1.571",
         "line 177.5,240.75 177.5,190.75", "text 174,186.05 h2.4 0.001",
         "text 109.1,180.75 h4 粒径", "text 102.8,174.75 h4 颗粒组成",
         // table lines and fraction names
         "line 52.4,172.95 182.6,172.95", "line 52.4,144.95 182.6,144.95",
         "line 52.4,172.95 52.4,144.95", "line 182.6,172.95 182.6,144.95",
         "line 52.4,168.95 136.4,168.95", "line 52.4,152.15 136.4,152.15", "text 60.8,169.45 h3 卵",
         "text 86,169.45 h3 砾", "text 115.4,169.45 h3 砂",
         // first column, above 60 mm; last column, 0.25 to 0.075 mm, too long to be centred
         "line 52.4,172.95 52.4,144.95", "text 54.5,157.75 h2.4 60", "text 55.2,161.75 h2.4 >",
         "text 53.2,153.75 h2.4 (mm)", "line 60.8,168.95 60.8,144.95",
         "line 77.6,172.95 77.6,144.95", "text 129.4,165.75 h2.4 0.25",
         "text 129.4,157.75 h2.4 0.075", "text 130.8,161.75 h2.4 ~",
         "line 136.4,172.95 136.4,144.95", "circle 69.336,240.75 r0.5 color 1",
         "hatch SOLID color 1",
         // index block
         "text 138.4,169.25 h2.4 d", "text 140.5,168.53 h1.44 60",
         "text 154.88,167.75 h2.4 Cu=", "text 161.18,169.75 h2.4 d", "text 161.18,166.25 h2.4 d",
         "line 159.92,168.817 165.12,168.817", "text 138.4,163.25 h2.4 d",
         "text 138.4,157.25 h2.4 d", "text 154.88,157.25 h2.4 Cc=", "text 164.33,159.25 h2.4 d",
         "text 166.43,160.93 h1.44 2", "text 166.43,158.53 h1.44 30", "text 161.18,155.25 h2.4 d",
         "line 165.38,154.75 166.64,156.85", "line 165.38,156.85 166.64,154.75",
         "text 167.48,155.25 h2.4 d", "line 159.92,158.15 171.62,158.15", "CKFCurve",
         "text 62.9,146.95 h2.4 10.0", "text 138.4,148.95 h3 土试样分类"},
        Drawn()));
    // Nothing at 90 % and for the empty sieve, and the percentages of the others.
    EXPECT_THAT(Drawn("text 53.4,234.45"), IsEmpty());
    EXPECT_THAT(Drawn("text 54.5,146.95"), IsEmpty());
    const auto labels = CurveLabels();
    EXPECT_THAT(labels, ElementsAre(HasSubstr(" at 142.6,168.95"), HasSubstr(" at 165.38,167.75"),
                                    HasSubstr(" at 142.6,162.95"), HasSubstr(" at 142.6,156.95"),
                                    HasSubstr(" at 171.89,157.25")));
}

TEST_F(ResultChart, LongFormHasTheIndexBlockBelow) {
    std::vector<TestProject::Item> items;
    for (double size : {400.0, 200.0, 60.0, 40.0, 20.0, 10.0, 5.0, 2.0, 0.5, 0.25, 0.1, 0.075, 0.05,
                        0.01, 0.005, 0.002}) {
        items.push_back({size, 10});
    }
    project_.AddSample("5", 160, items);
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    EXPECT_TRUE(StandInOrder(
        {"line 57.5,200.75 177.5,200.75", "line 50.3,182.95 184.7,182.95",
         "line 50.3,154.95 184.7,154.95", "line 50.3,182.95 50.3,145.35",
         "line 184.7,182.95 184.7,145.35", "line 50.3,145.35 184.7,145.35",
         "text 58.7,149.25 h2.4 d", "text 108.26,149.25 h2.4 Cu=", "text 114.56,147.25 h2.4 d",
         "line 113.3,150.25 118.5,150.25", "text 75.82,149.25 h2.4 d", "text 92.62,149.25 h2.4 d",
         "text 133.46,149.25 h2.4 Cc=", "line 143.96,146.75 145.22,148.85",
         "line 138.5,150.15 150.2,150.15", "text 161.18,148.95 h3 土试样分类"},
        Drawn()));
}

TEST_F(ResultChart, NamesOfSingleColumnsAreCompact) {
    project_.AddSample("5", 100, {{5, 10}, {0.5, 20}, {0.075, 20}, {0.002, 50}});
    ASSERT_EQ(DrawResultChart(tools_, &sheet_), 1);
    // 9.5 columns wide from 77.6
    EXPECT_TRUE(StandInOrder(
        {"text 79.7,169.45 h3 砾粒", "text 90.2,169.45 h3 砂", "text 104.9,169.45 h3 粘粒"},
        Drawn()));
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
    // 7.5 columns wide from 86
    EXPECT_TRUE(StandInOrder(
        {"text 32,252.25 h4 土层编号", "text 43.2,252.65 h3.2 : 2-1", "text 88.1,146.95 h2.4 25.0",
         "text 96.5,146.95 h2.4 40.0", "text 104.8,148.95 h3 土试样分类"},
        Drawn()));
    EXPECT_EQ(CountDrawn("circle"), 2U);
    EXPECT_EQ(messages_.CommandLine(), "");
}

}  // namespace
