#include "src/db/record_loaders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/gbk_literal.h"
#include "tests/src/db/DatabaseFixture.h"

namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;
using SampleLoader = DatabaseFixture;
using LayerLoader = DatabaseFixture;

TEST_F(SampleLoader, DepthAndThicknessAreReadAndTheirLackTold) {
    // The row's depth and thickness, null for no row; the result, what is read and what is printed.
    const std::tuple<const char*, int, double, double, const char*> cases[] = {
        {"12.3,0.2", 1, 12.3, 0.2, ""},
        {nullptr, 0, -9, -9, ""},
        {"NULL,0.2", 0, -9, -9, "\n数据库z_c_QuYang取样编号5数据QYSD不全!"},
        {"12.3,NULL", 0, 12.3, -9, "\n数据库z_c_QuYang取样编号5数据QYHD不全!"},
        {"12.3,9e999", 0, 12.3, -9, "\n数据库z_c_QuYang取样编号5数据QYHD不全!"},
        {"0,0", 1, 0, 0, ""},
    };
    for (const auto& [row, result, depthRead, thicknessRead, printed] : cases) {
        Run("DELETE FROM z_c_QuYang");
        if (row != nullptr) {
            Run(std::string("INSERT INTO z_c_QuYang VALUES(12,'ZK3','5',") + row + ")");
        }
        double depth = -9;
        double thickness = -9;
        EXPECT_EQ(LoadSampleDepth(Record(), depth, thickness), result);
        EXPECT_EQ(depth, depthRead);
        EXPECT_EQ(thickness, thicknessRead);
        EXPECT_EQ(Printed(), printed);
        EXPECT_EQ(Box(), "");
    }
    Run("DROP TABLE z_c_QuYang");
    double unused = 0;
    EXPECT_EQ(LoadSampleDepth(Record(), unused, unused), 0);
    EXPECT_EQ(Box(), "不能打开常规试验表,请检查数据!");
}

TEST_F(SampleLoader, ItemsComeCoarsestFirstAndEqualSizesByNumber) {
    Run("INSERT INTO Z_c_KeFenCSXM VALUES(12,'ZK3','5',4,0.25,40.4),(12,'ZK3','5',1,0.075,10.1),"
        "(12,'ZK3','5',3,0.5,30.3),(12,'ZK3','5',2,2,20.2),(12,'ZK3','5',5,0.5,50.5),"
        "(12,'ZK3','6',1,40,1),(11,'ZK3','5',1,40,1)");
    GrainSizeRecord record = Record();
    EXPECT_EQ(LoadTestItems(record), 1);
    EXPECT_THAT(record.sizes, ElementsAre(2, 0.5, 0.5, 0.25, 0.075));
    EXPECT_THAT(record.amounts, ElementsAre(20.2, 30.3, 50.5, 40.4, 10.1))
        << "32-bit floats arrive as the decimals they were";
}

TEST_F(SampleLoader, ManyEqualSizesKeepTheirOrder) {
    std::vector<double> numbers;
    for (int number = 1; number <= 40; ++number) {
        Run("INSERT INTO Z_c_KeFenCSXM VALUES(12,'ZK3','5'," + std::to_string(number) + ",0.5," +
            std::to_string(number) + ")");
        numbers.push_back(number);
    }
    GrainSizeRecord record = Record();
    EXPECT_EQ(LoadTestItems(record), 1);
    EXPECT_EQ(record.amounts, numbers);
}

TEST_F(SampleLoader, MissingItemsAreTold) {
    GrainSizeRecord record = Record();
    EXPECT_EQ(LoadTestItems(record), 0);
    EXPECT_EQ(Box(), "请在数据表中输入数据");
    for (const char* second : {"NULL,1", "2,NULL", "-0.5,1", "9e999,1", "2,-9e999", "2,'nan'"}) {
        Run("DELETE FROM Z_c_KeFenCSXM; INSERT INTO Z_c_KeFenCSXM VALUES(12,'ZK3','5',1,0.5,30)");
        Run(std::string("INSERT INTO Z_c_KeFenCSXM VALUES(12,'ZK3','5',2,") + second + ")");
        record = Record();
        EXPECT_EQ(LoadTestItems(record), 0);
        EXPECT_EQ(Box(), "颗分试验项目表数据不全，请检查!");
        EXPECT_THAT(record.sizes, ElementsAre(0.5));
        EXPECT_THAT(record.amounts, ElementsAre(30));
    }
    record = Record();
    record.sample = "5'";
    EXPECT_EQ(LoadTestItems(record), 0);
    EXPECT_EQ(Box(), "不能打开颗分试验项目表,请检查数据!");
    EXPECT_THAT(record.sizes, IsEmpty());
}

TEST_F(SampleLoader, TheProjectsNumberMustBeTheCurvesOwn) {
    Run("INSERT INTO x_GongCheng VALUES(12,'工-1','',0,0),(13,'a','',0,0),(13,'b','',0,0)");
    const std::tuple<int, std::string, int, const char*> cases[] = {
        {12, "工-1"_gbk, 1, ""},
        {12, "工-2"_gbk, 0, "该工程工程编号已被修改,数据无法入库!"},
        {13, "a", 1, ""},
        {13, "A", 0, "该工程工程编号已被修改,数据无法入库!"},
        {13, "b", 0, "该工程工程编号已被修改,数据无法入库!"},
        {14, "a", 0, "打开工点信息数据表中不存在该工程!"},
    };
    for (const auto& [index, number, result, box] : cases) {
        EXPECT_EQ(CheckProjectNumber(index, number), result);
        EXPECT_EQ(Box(), box);
    }
    Run("DROP TABLE x_GongCheng");
    EXPECT_EQ(CheckProjectNumber(12, "a"), 0);
    EXPECT_EQ(Box(), "不能打开工点信息数据表,请检查数据!");
}

TEST_F(LayerLoader, ClassesAreReadScaledAndTheFinestLeftOut) {
    using Numbers = std::vector<double>;
    // Codes and values, as SQL; whether the percentages are recomputed; sizes and fractions.
    const std::tuple<const char*, std::string, bool, Numbers, Numbers> cases[] = {
        {"finest class left out",
         "(1105,'25'),(1109,'40'),(1118,'35')",
         false,
         {20, 0.5},
         {0.25, 0.4}},
        {"already a sum of 1", "(1105,'25'),(1109,'40'),(1118,'35')", true, {20, 0.5}, {0.25, 0.4}},
        {"finest class counts in the sum",
         "(1105,'30'),(1109,'30'),(1118,'20')",
         true,
         {20, 0.5},
         {0.375, 0.375}},
        {"order of the series, other codes and nulls ignored",
         "(1117,'5'),(1100,'1.5'),(1119,'9'),(1106,NULL),(99,'9')",
         false,
         {800, 0.002},
         {0.015, 0.05}},
        {"the last row of a code counts", "(1105,'10'),(1105,'20')", false, {20}, {0.2}},
        {"texts that are no numbers",
         "(1105,''),(1106,' 12.5%'),(1107,'abc'),(1108,'nan')",
         false,
         {20, 10, 5, 2},
         {0, 0.125, 0, 0}},
        {"a sum of 0 scales nothing", "(1105,'0'),(1106,'0')", true, {20, 10}, {0, 0}},
        {"a finest class that was not returned removes nothing",
         "(1105,'30'),(1118,'-60')",
         false,
         {20},
         {0.3}},
        {"a finest class of 0 is left out", "(1105,'30'),(1118,'0')", false, {20}, {0.3}},
        {"a null finest class removes nothing", "(1105,'30'),(1118,NULL)", true, {20}, {1}},
        {"every code has its size",
         "(1118,'0'),(1117,'17'),(1116,'16'),(1115,'15'),(1114,'14'),(1113,'13'),(1112,'12'),(1111,"
         "'11'),(1110,'10'),(1109,'9'),(1108,'8'),(1107,'7'),(1106,'6'),(1105,'5'),(1104,'4'),("
         "1103,'3'),(1102,'2'),(1101,'1')",
         false,
         {400, 200, 60, 40, 20, 10, 5, 2, 0.5, 0.25, 0.1, 0.075, 0.074, 0.05, 0.01, 0.005, 0.002},
         {.01, .02, .03, .04, .05, .06, .07, .08, .09, .1, .11, .12, .13, .14, .15, .16, .17}},
        {"only the finest class", "(1118,'100')", true, {}, {}},
    };
    for (const auto& [reason, rows, recompute, sizes, fractions] : cases) {
        SCOPED_TRACE(reason);
        Run("DELETE FROM x_SheJi; INSERT INTO x_SheJi VALUES(12,2,0,1105,'99','')");
        Run("INSERT INTO x_SheJi SELECT 12,2,1,*,'' FROM (VALUES " + rows + ")");
        GrainSizeRecord record = Record();
        EXPECT_EQ(LoadLayerFractions(record, recompute), 1);
        EXPECT_EQ(record.sizes, sizes);
        EXPECT_THAT(record.amounts, Pointwise(DoubleEq(), fractions));
    }
}

TEST_F(LayerLoader, ALayerWithoutRowsIsSilent) {
    GrainSizeRecord record = Record();
    EXPECT_EQ(LoadLayerFractions(record, false), 0);
    Run("DROP TABLE x_SheJi");
    EXPECT_EQ(LoadLayerFractions(record, false), 0);
    EXPECT_EQ(Box(), "");
}

}  // namespace
