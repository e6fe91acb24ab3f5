#include "src/chart/cumulative_chart.h"

#include "src/chart/cumulative_sheet.h"
#include "tests/src/chart/ChartFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class CumulativeChart : public ChartFixture {
protected:
    void SetUp() override {
        ChartFixture::SetUp();
        ProjectContext.GCBZ = 2;
        PlaceCumulativeChart(0);
    }
};

const std::vector<TestProject::Item> kItems{{60, 0},  {20, 50},   {5, 100},
                                            {2, 150}, {0.5, 100}, {0.075, 50}};

TEST_F(CumulativeChart, PlacesOnTheSheet) {
    const struct {
        int chart;
        double x;
        double y;
    } cases[] = {{0, 48, 280},  {1, 242, 280}, {2, 48, 191.5},
                 {5, 242, 103}, {6, 48, 280},  {9, 242, 191.5}};
    for (const auto& c : cases) {
        PlaceCumulativeChart(c.chart);
        EXPECT_EQ(ChartOriginX, c.x) << c.chart;
        EXPECT_EQ(ChartOriginY, c.y) << c.chart;
    }
    EXPECT_EQ(ChartTextHeight, 4.0);
    EXPECT_EQ(ChartLineGap, 1.5);
}

TEST_F(CumulativeChart, HeaderGridAndAxes) {
    project_.AddSample("5", 500, kItems);
    project_.Sql("INSERT INTO z_c_QuYang VALUES(1, 'ZK3', '5', 1.2, 0.2)");
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);

    EXPECT_THAT(Drawn(), IsSupersetOf({
                             "text 58,280 h4 钻孔编号",
                             "text 69.2,280.4 h3.2 : ZK3",
                             "text 112,280 h4 土样编号",
                             "text 164,280 h4 取样深度",
                             "text 175.2,280.4 h3.2 : 1.20-1.40m",
                             // grid 48 … 208 × 211 … 276
                             "line 48,276 208,276",
                             "line 48,269.5 208,269.5",
                             "line 48,211 208,211",
                             "line 48,276 48,211",
                             "text 42.85,274.8 h2.4 100",
                             "text 44.95,209.8 h2.4 0",
                             "text 119,199 h4 粒径",
                             "text 41,223.9 h4 小于某粒径的土质量百分比数(%) turned 1.571",
                             // size axis, 160 / 5.30103 = 30.1828 a decade
                             "line 57.086,276 57.086,211",
                             "line 193.599,276 193.599,211",
                             "line 208,276 208,211",
                             "text 54.986,207.3 h2.4 100",
                             "text 204.5,206.3 h2.4 0.001",
                         }));
    EXPECT_THAT(messages_.Boxes(), IsEmpty());
    EXPECT_EQ(ChartTextHeight, 3.0);
    EXPECT_EQ(ChartLineGap, 1.0);
}

TEST_F(CumulativeChart, IntermediateLinesLeaveRoomForTheValues) {
    project_.AddSample("5", 500, kItems);
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(Drawn(), IsSupersetOf({
                             "line 48,272.75 193.599,272.75",
                             "line 48,233.75 193.599,233.75",
                             "line 48,227.25 208,227.25",
                             "line 48,214.25 208,214.25",
                             "text 194.099,271.3 h2.4 d",
                             "text 196.199,270.58 h1.44 95",
                             "text 194.099,245.3 h2.4 d",
                             "text 196.199,244.58 h1.44 10",
                             "text 194.099,238.8 h2.4 Cu",
                             "text 194.099,232.3 h2.4 Cc",
                         }));
}

TEST_F(CumulativeChart, OrderAndNumberOfEntities) {
    project_.AddSample("5", 500, kItems);
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    // percentage lines and left edge, five decades of ten, intermediate lines
    EXPECT_EQ(CountDrawn("line"), 11U + 1U + 50U + 10U);
    EXPECT_EQ(CountDrawn("circle"), 6U);
    EXPECT_EQ(CountDrawn("hatch"), 6U);
    // header runs (two each, the depth's colon too), labels left and below, titles, value table
    EXPECT_EQ(CountDrawn("text"), 6U + 11U + 6U + 3U + 12U);

    const auto drawn = Drawn();
    EXPECT_EQ(drawn.back(), "CKFCurve");
    const auto at = [&drawn](const std::string& line) {
        return std::find(drawn.begin(), drawn.end(), line) - drawn.begin();
    };
    const std::vector<std::ptrdiff_t> order{
        at("text 58,280 h4 钻孔编号"),
        at("line 48,276 208,276"),
        at("text 42.85,274.8 h2.4 100"),
        at("line 48,269.5 208,269.5"),
        at("line 48,276 48,211"),
        at("text 119,199 h4 粒径"),
        at("text 41,223.9 h4 小于某粒径的土质量百分比数(%) turned 1.571"),
        at("line 57.086,276 57.086,211"),
        at("text 54.986,207.3 h2.4 100"),
        at("text 204.5,206.3 h2.4 0.001"),
        at("line 48,272.75 193.599,272.75"),
        at("circle 63.782,276 r0.5 color 1"),
        at("text 194.099,271.3 h2.4 d"),
        at("CKFCurve")};
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << testing::PrintToString(order);
}

TEST_F(CumulativeChart, PointsAndCurve) {
    project_.AddSample("5", 300, {{20, 0}, {2, 100}, {0.2, 100}, {0.02, 90}, {0, 10}});
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(
        Drawn("circle"),
        ElementsAre("circle 78.183,276 r0.5 color 1", "circle 108.366,254.333 r0.5 color 1",
                    "circle 138.548,232.667 r0.5 color 1", "circle 168.731,213.167 r0.5 color 1"))
        << "none for the pan";
    const auto labels = CurveLabels();
    ASSERT_EQ(labels.size(), 7U);
    // right of the line at 0.002 mm, in rows of 6.5
    EXPECT_THAT(labels[0], testing::StartsWith("text 199.41"));
    EXPECT_THAT(labels[0], testing::HasSubstr(",271 "));
    EXPECT_THAT(labels[6], testing::HasSubstr(",232 "));
}

TEST_F(CumulativeChart, ResultsAreStored) {
    project_.AddSample("5", 300, StraightItems());
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(project_.Sql("SELECT round(KLD95,3), round(KLD85,3), round(KLD60,3),"
                             "round(KLD50,3), round(KLD30,3), round(KLD15,3), round(KLD10,3),"
                             "round(KLD90,3), round(KLBJXS,3), round(KLQLXS,3) FROM Z_c_KeFen"),
                ElementsAre("14.159|7.096|1.262|0.632|0.159|0.056|0.04|10.024|31.55|0.501"));
    EXPECT_THAT(project_.Sql("SELECT round(KL20,3), round(KL2,3), round(KL_25,3), KLSYFF"
                             " FROM Z_c_KeFen"),
                ElementsAre("0.0|33.333|0.0|筛分法"));
    VisitModelSpace(sheet_, [](const AcDbEntity& entity) {
        if (const auto* curve = dynamic_cast<const CKFCurve*>(&entity)) {
            EXPECT_FALSE(curve->IsChanged());
            EXPECT_EQ(curve->colorIndex(), 257);
        }
    });
}

TEST_F(CumulativeChart, WideAxisForSizesAbove100) {
    project_.AddSample("5", 500, {{200, 100}, {60, 100}, {0.075, 100}});
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_EQ(CountDrawn("line"), 11U + 1U + 60U + 10U);
    // X(1000) = 48 + log 2 × 160 / 6.30103; the label is four characters wide
    EXPECT_THAT(Drawn(), Contains("text 52.844,207.3 h2.4 1000"));

    AcDbDatabase narrow;
    project_.AddSample("6", 500, {{100, 100}, {60, 100}, {0.075, 100}});
    ASSERT_EQ(DrawCumulativeChart(tools_, &narrow), 1);
    EXPECT_THAT(Dump(narrow), Not(Contains(testing::EndsWith(" 1000"))));
}

TEST_F(CumulativeChart, RightAxisIsOptional) {
    project_.AddSample("5", 500, kItems);
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    const auto texts = CountDrawn("text");
    RightAxisOption = true;
    AcDbDatabase both;
    ASSERT_EQ(DrawCumulativeChart(tools_, &both), 1);
    const auto drawn = Dump(both);
    EXPECT_EQ(std::count_if(drawn.begin(), drawn.end(),
                            [](const std::string& line) { return line.starts_with("text"); }),
              static_cast<std::ptrdiff_t>(texts + 11 + 1));
    EXPECT_THAT(drawn, IsSupersetOf({
                           "text 210,274.8 h2.4 0",
                           "text 210,209.8 h2.4 100",
                           "text 219,223.9 h4 大于某粒径的土质量百分比数(%) turned 1.571",
                       }));
}

TEST_F(CumulativeChart, DepthNeedsAThickness) {
    project_.AddSample("5", 500, kItems);
    project_.Sql("INSERT INTO z_c_QuYang VALUES(1, 'ZK3', '5', 1.2, 0)");
    ASSERT_EQ(DrawCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(Drawn(), Contains("text 175.2,280.4 h3.2 :"));
}

TEST_F(CumulativeChart, UnusableDataDrawNothing) {
    const struct {
        const char* sample;
        double total;
        std::vector<TestProject::Item> items;
        std::vector<std::string> boxes;
    } cases[] = {
        {"heavy",
         100,
         {{2, 60}, {0.5, 40.1}},
         {"筛余质量的和大于试样的总质量，请检查数据表中的数据！"}},
        {"weightless", 0, {{2, 0}}, {"筛余质量的和大于试样的总质量，请检查数据表中的数据！"}},
        {"without items", 100, {}, {"请在数据表中输入数据"}},
    };
    for (const auto& c : cases) {
        const RecordedMessages messages;
        project_.AddSample(c.sample, c.total, c.items);
        EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0) << c.sample;
        EXPECT_EQ(messages.Boxes(), c.boxes) << c.sample;
    }
    CurrentSample = "unknown";
    EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), IsEmpty());
    EXPECT_THAT(Drawn(), IsEmpty());

    project_.Sql("DROP TABLE Z_c_KeFen");
    EXPECT_EQ(DrawCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), ElementsAre("不能打开颗分试验表!请检查!"));
}

TEST_F(CumulativeChart, LayersAreDrawnFromTheirFractions) {
    ChartMode = kLayerCharts;
    project_.Sql("INSERT INTO x_SheJi VALUES(1,2,1,1105,'25'),(1,2,1,1109,'40'),(1,2,1,1118,'35')");
    CurrentSample = "2-1";
    CurrentMainLayer = "2";
    CurrentSubLayer = "1";
    ASSERT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 1);
    // 75 % and 35 % passing
    EXPECT_THAT(Drawn("circle"), ElementsAre("circle 78.183,259.75 r0.5 color 1",
                                             "circle 126.537,233.75 r0.5 color 1"));
    EXPECT_THAT(Drawn("text"),
                IsSupersetOf({"text 112,280 h4 土层编号", "text 123.2,280.4 h3.2 : 2-1"}));
    EXPECT_THAT(Drawn("text 58,280"), IsEmpty());
    EXPECT_THAT(project_.Sql("SELECT CSLX FROM x_SheJi WHERE CSLX > 1118 ORDER BY CSLX"),
                ElementsAre("1122", "1123"))
        << "d50 and d60 are all that the curve reaches";

    CurrentMainLayer = "9";
    EXPECT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 0);
    EXPECT_THAT(messages_.Boxes(), IsEmpty());
    EXPECT_EQ(messages_.CommandLine(), "");
}

TEST_F(CumulativeChart, ALayerWithNothingButTheFinestClassHasNoCurve) {
    ChartMode = kLayerCharts;
    project_.Sql("INSERT INTO x_SheJi VALUES(1,2,0,1118,'100')");
    CurrentMainLayer = "2";
    CurrentSubLayer = "0";
    ASSERT_EQ(DrawLayerCumulativeChart(tools_, &sheet_), 1);
    EXPECT_THAT(Drawn("circle"), IsEmpty());
    EXPECT_THAT(CurveLabels(), testing::Each(testing::EndsWith(" "))) << "empty values";
}

}  // namespace
