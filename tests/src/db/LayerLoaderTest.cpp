#include "src/db/record_loaders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/src/db/DatabaseFixture.h"

namespace {

using testing::DoubleEq;
using testing::Pointwise;
using LayerLoader = DatabaseFixture;

TEST_F(LayerLoader, ClassesAreReadScaledAndTheFinestLeftOut) {
    struct Case {
        const char* reason;
        std::vector<std::pair<int, const char*>> rows;  ///< code and value
        bool recompute;
        std::vector<double> sizes, fractions;
    };
    const Case cases[] = {
        {"finest class left out",
         {{1105, "25"}, {1109, "40"}, {1118, "35"}},
         false,
         {20, 0.5},
         {0.25, 0.4}},
        {"already a sum of 1",
         {{1105, "25"}, {1109, "40"}, {1118, "35"}},
         true,
         {20, 0.5},
         {0.25, 0.4}},
        {"finest class counts in the sum",
         {{1105, "30"}, {1109, "30"}, {1118, "20"}},
         true,
         {20, 0.5},
         {0.375, 0.375}},
        {"order of the series, other codes and nulls ignored",
         {{1117, "5"}, {1100, "1.5"}, {1119, "9"}, {1106, nullptr}, {99, "9"}},
         false,
         {800, 0.002},
         {0.015, 0.05}},
        {"the last row of a code counts", {{1105, "10"}, {1105, "20"}}, false, {20}, {0.2}},
        {"texts that are no numbers",
         {{1105, ""}, {1106, " 12.5%"}, {1107, "abc"}, {1108, "nan"}},
         false,
         {20, 10, 5, 2},
         {0, 0.125, 0, 0}},
        {"a sum of 0 scales nothing", {{1105, "0"}, {1106, "0"}}, true, {20, 10}, {0, 0}},
        {"a finest class that was not returned removes nothing",
         {{1105, "30"}, {1118, "-60"}},
         false,
         {20},
         {0.3}},
        {"a finest class of 0 is left out", {{1105, "30"}, {1118, "0"}}, false, {20}, {0.3}},
        {"a null finest class removes nothing", {{1105, "30"}, {1118, nullptr}}, true, {20}, {1}},
        {"only the finest class", {{1118, "100"}}, true, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        Run("DELETE FROM x_SheJi; INSERT INTO x_SheJi VALUES(12,2,0,1105,'99','')");
        for (const auto& [code, value] : c.rows) {
            Run("INSERT INTO x_SheJi VALUES(12,2,1," + std::to_string(code) + "," +
                (value ? "'" + std::string(value) + "'" : "NULL") + ",'')");
        }
        GrainSizeRecord record = Record();
        EXPECT_EQ(LoadLayerFractions(record, c.recompute), 1);
        EXPECT_EQ(record.sizes, c.sizes);
        EXPECT_THAT(record.amounts, Pointwise(DoubleEq(), c.fractions));
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
