#include "src/db/result_stores.h"

#include <gtest/gtest.h>

#include "src/core/percentages.h"
#include "tests/src/db/DatabaseFixture.h"

namespace {

class ClassPercentageStore : public DatabaseFixture {
protected:
    static int Store(const std::vector<double>& sizes, const std::vector<double>& masses,
                     double total) {
        GrainSizeRecord record = Record();
        record.sizes = sizes;
        record.amounts = masses;
        record.totalMass = total;
        ComputeClassPercentages(record);
        return StoreClassPercentages(record);
    }
};

TEST_F(ClassPercentageStore, PercentagesAreRoundedAndEvenedOut) {
    struct Case {
        const char* reason;
        std::vector<double> sizes, masses;
        double total;
        const char* columns;
        const char* stored;
    };
    const Case cases[] = {
        {"thirds stay short, no stored value being that of the largest",
         {2, 0.5, 0},
         {1, 1, 1},
         3,
         "KL2,KL_5,KL0,KL800",
         "33.333|33.333|33.333|0.0"},
        {"the first of the largest takes what is over",
         {20, 10, 5, 2},
         {50, 12.4996, 12.4996, 25.0008},
         100,
         "KL20,KL10,KL5,KL2",
         "49.999|12.5|12.5|25.001"},
        {"what is missing is added",
         {20, 10, 5, 2},
         {60, 13.3333, 13.3333, 13.3334},
         100,
         "KL20,KL10,KL5,KL2",
         "60.001|13.333|13.333|13.333"},
        {"a test that does not account for all is left",
         {20, 2},
         {60, 39.5},
         100,
         "KL20,KL2",
         "60.0|39.5"},
        {"a size outside the series keeps its mass to itself",
         {0.5, 0.3, 0.25},
         {50, 30, 20},
         100,
         "KL_5,KL_25",
         "50.0|20.0"},
        {"0.075 and 0.074 are two columns",
         {0.075, 0.074},
         {40, 60},
         100,
         "KL_075,KL_074",
         "40.0|60.0"},
        {"fines are the mass finer than 0.005 mm",
         {2, 0.5, 0.075, 0.005, 0.002, 0},
         {10, 20, 30, 25, 9.5, 5.5},
         100,
         "KL_005,KLHL",
         "25.0|15.0"},
        {"fines need a sieve of 0.005 mm above them", {0.075, 0.002}, {70, 30}, 100, "KLHL", "0.0"},
        {"no items clear what was stored", {}, {}, 100, "KL20,KLHL", "0.0|0.0"},
    };
    AddResultRow(",KL20,KLHL", ",77,NULL");
    Run("INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL,KL20) VALUES(12,'ZK3','6',1,88)");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(Store(c.sizes, c.masses, c.total), 1);
        EXPECT_EQ(Rows(std::string("SELECT ") + c.columns + " FROM Z_c_KeFen WHERE QYBH='5'"),
                  c.stored);
    }
    EXPECT_EQ(Rows("SELECT KL20,KL2 FROM Z_c_KeFen WHERE QYBH='6'"), "88|null");
}

TEST_F(ClassPercentageStore, OnlyTheClassesAreWritten) {
    AddResultRow(",KLSYFF,KLD10,KLBJXS", ",'密度计法',0.123456789,NULL");
    EXPECT_EQ(Store({2, 0}, {300, 200}, 500), 1);
    EXPECT_EQ(Rows("SELECT GCSY,ZKBH,QYBH,KLSYFF,KL2,KL0,KLD10,KLTYZL,KLBJXS FROM Z_c_KeFen"),
              "12|ZK3|5|密度计法|60.0|40.0|0.123456789|500|null");
}

TEST_F(ClassPercentageStore, AMissingRowIsSilentAMissingTableIsNot) {
    EXPECT_EQ(Store({2}, {1}, 1), 0);
    EXPECT_EQ(Box(), "");
    Run("DROP TABLE Z_c_KeFen");
    EXPECT_EQ(Store({2}, {1}, 1), 0);
    EXPECT_EQ(Box(), "不能打开颗分试验表!请检查!");
}

TEST_F(ClassPercentageStore, AFailedWriteStillCountsAsDone) {
    AddResultRow(",KL20", ",77");
    Run("CREATE TRIGGER no BEFORE UPDATE ON Z_c_KeFen BEGIN SELECT RAISE(ABORT,'kept'); END");
    EXPECT_EQ(Store({2}, {500}, 500), 1);
    EXPECT_EQ(Rows("SELECT KL20,KL2 FROM Z_c_KeFen"), "77|null");
    EXPECT_EQ(Box(), "");
}

}  // namespace
