#include "src/db/result_stores.h"

#include <gtest/gtest.h>

#include "src/common/module_state.h"
#include "src/core/percentages.h"
#include "tests/src/db/DatabaseFixture.h"

namespace {

constexpr double kMissing = -1.0;

class CurveStore : public DatabaseFixture {
protected:
    CurveStore() { curve_.diameters = {1.9, 1.1, 0.3, 0.2, 0.08, 0.04, 0.02, 1.4}; }
    int Store(int chartMode) {
        curve_.uniformity = Uniformity(curve_.diameters);
        curve_.curvature = Curvature(curve_.diameters);
        return StoreCurveValues(curve_, chartMode);
    }
    std::string Results() {
        return Rows(
            "SELECT KLD10,KLD15,KLD30,KLD50,KLD60,KLD85,KLD90,KLD95,KLBJXS,KLQLXS "
            "FROM Z_c_KeFen WHERE QYBH='5'");
    }
    std::string Layer() {
        return Rows("SELECT CSLX,CSV FROM x_SheJi WHERE ZCBH=2 AND YCBH=1 ORDER BY rowid");
    }
    void AddLayerRow(int code, const std::string& value) {
        Run("INSERT INTO x_SheJi VALUES(12,2,1," + std::to_string(code) + "," + value + ",'kept')");
    }

    GrainSizeRecord curve_ = Record();
};

TEST_F(CurveStore, ASamplesDiametersGoIntoItsRow) {
    AddResultRow(",KLHL,KLSYFF", ",3.5,'筛分'");
    Run("INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL) VALUES(12,'ZK3','6',1)");
    curve_.diameters[3] = 0.123456789;
    EXPECT_EQ(Store(kSampleCharts), 1);
    EXPECT_EQ(Results(), "0.02|0.04|0.08|0.12345679|0.3|1.1|1.4|1.9|15.0|1.067")
        << "diameters as 32-bit floats, coefficients with three decimals";
    EXPECT_EQ(Rows("SELECT KLHL,KLSYFF,KLTYZL FROM Z_c_KeFen WHERE QYBH='5'"), "3.5|筛分|500");
    EXPECT_EQ(Rows("SELECT KLD10,KLBJXS FROM Z_c_KeFen WHERE QYBH='6'"), "null|null");

    curve_.diameters = {1.9, kMissing, 0.3, 0.0001, 0.00011, 0.04, 0.0, 1.4};
    EXPECT_EQ(Store(kSampleCharts), 1);
    EXPECT_EQ(Results(), "null|0.04|0.00011|null|0.3|null|1.4|1.9|null|null")
        << "what is not determined becomes null, with what was made of it";
    curve_.diameters[4] = kMissing;
    curve_.diameters[6] = 0.1;
    EXPECT_EQ(Store(kSampleCharts), 1);
    EXPECT_EQ(Results(), "0.1|0.04|null|null|0.3|null|1.4|1.9|3.0|null");
    curve_.diameters = {200, 150, 100, 50, 0.001, 0.0009, 0.0008, 180};
    AddLayerRow(1127, "'5'");
    EXPECT_EQ(Store(kSampleCharts), 1);
    EXPECT_EQ(Rows("SELECT KLBJXS,KLQLXS FROM Z_c_KeFen WHERE QYBH='5'"), "125000.0|null");
    EXPECT_EQ(Store(kLayerCharts), 1);
    EXPECT_EQ(Rows("SELECT count(*) FROM x_SheJi WHERE CSLX=1127"), "0");
}

TEST_F(CurveStore, WithoutARowOrTableNothingIsStored) {
    EXPECT_EQ(Store(kSampleCharts), 0);
    EXPECT_EQ(Store(kLayerCharts), 0);
    EXPECT_EQ(Rows("SELECT * FROM x_SheJi"), "") << "a layer without rows gets none";
    curve_.sample = "5'";
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Store(kSampleCharts), 0);
    EXPECT_EQ(Box(), "不能打开颗分试验表!请检查!");
    Run("DROP TABLE x_SheJi");
    EXPECT_EQ(Store(kLayerCharts), 0);
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Store(kChartModeNotSet), 1);
}

TEST_F(CurveStore, ALayersRowsAreUpdatedThenMissingOnesMade) {
    AddLayerRow(1105, "'25'");
    AddLayerRow(1127, "NULL");
    AddLayerRow(1119, "'9.999'");
    Run("INSERT INTO x_SheJi VALUES(12,2,0,1119,'7','other layer'),(13,2,1,1119,'7','other "
        "project')");
    EXPECT_EQ(Store(kLayerCharts), 1);
    EXPECT_EQ(Layer(),
              "1105|25 1127|1.067 1119|0.020 1119|7 1126|1.900 1124|1.100 1123|0.300 1122|0.200 "
              "1121|0.080 1120|0.040 1125|1.400 1128|15.000");
    EXPECT_EQ(Rows("SELECT note FROM x_SheJi WHERE CSLX=1119"), "kept other layer other project");
    EXPECT_EQ(Rows("SELECT count(*) FROM x_SheJi WHERE GCSY=12 AND ZCBH=2 AND YCBH=1"), "11");
}

TEST_F(CurveStore, ALayersRowsOfLostValuesGoAndSecondOnesStay) {
    for (const int code : {1120, 1119, 1119, 1128, 1120, 1105}) AddLayerRow(code, "'5'");
    curve_.diameters = {kMissing, kMissing, kMissing, kMissing, kMissing, 0.0001, 0.02, kMissing};
    EXPECT_EQ(Store(kLayerCharts), 1);
    EXPECT_EQ(Layer(), "1119|0.020 1119|5 1105|5");
}

TEST_F(CurveStore, RowsThatCannotBeWrittenDoNotStopTheOthers) {
    for (const int code : {1119, 1120, 1121, 1126}) AddLayerRow(code, "'5'");
    Run("CREATE TRIGGER u BEFORE UPDATE ON x_SheJi WHEN OLD.CSLX=1119 "
        "BEGIN SELECT RAISE(ABORT,'no'); END;"
        "CREATE TRIGGER d BEFORE DELETE ON x_SheJi WHEN OLD.CSLX=1126 "
        "BEGIN SELECT RAISE(ABORT,'no'); END;"
        "CREATE TRIGGER i BEFORE INSERT ON x_SheJi WHEN NEW.CSLX=1124 "
        "BEGIN SELECT RAISE(ABORT,'no'); END");
    curve_.diameters = {kMissing, 1.1, kMissing, 0.2, kMissing, 0.04, 0.02, kMissing};
    EXPECT_EQ(Store(kLayerCharts), 1);
    EXPECT_EQ(Layer(), "1119|5 1120|0.040 1126|5 1122|0.200");
    EXPECT_EQ(Box(), "");
}

TEST_F(CurveStore, ADatabaseThatCannotBeWrittenStoresNothing) {
    AddResultRow();
    AddLayerRow(1119, "'5'");
    project_.Database().Lock();
    EXPECT_EQ(Store(kSampleCharts), 0);
    EXPECT_EQ(Store(kLayerCharts), 0);
    project_.Database().Unlock();
    EXPECT_EQ(Results(), "null|null|null|null|null|null|null|null|null|null");
    EXPECT_EQ(Layer(), "1119|5");
    EXPECT_EQ(Store(kSampleCharts), 1);
}

TEST_F(CurveStore, ALayerWithARowThatCannotBeReadIsLeftAlone) {
    AddLayerRow(1119, "'5'");
    Run("INSERT INTO x_SheJi VALUES(12,2,1,NULL,'5','')");
    EXPECT_EQ(Store(kLayerCharts), 0);
    EXPECT_EQ(Layer(), "1119|5 null|5");
}

class ClassPercentageStore : public DatabaseFixture {
protected:
    static GrainSizeRecord Tested(const std::vector<double>& sizes,
                                  const std::vector<double>& masses, double total) {
        GrainSizeRecord record = Record();
        record.sizes = sizes;
        record.amounts = masses;
        record.totalMass = total;
        return record;
    }
    static int Store(GrainSizeRecord record) {
        ComputeClassPercentages(record);
        return StoreClassPercentages(record);
    }
};

TEST_F(ClassPercentageStore, PercentagesAreRoundedAndEvenedOut) {
    const std::tuple<const char*, GrainSizeRecord, const char*, const char*> cases[] = {
        {"thirds stay short, no stored value being that of the largest",
         Tested({2, 0.5, 0}, {1, 1, 1}, 3), "KL2,KL_5,KL0,KL800", "33.333|33.333|33.333|0.0"},
        {"the first of the largest takes what is over",
         Tested({20, 10, 5, 2}, {50, 12.4996, 12.4996, 25.0008}, 100), "KL20,KL10,KL5,KL2",
         "49.999|12.5|12.5|25.001"},
        {"what is missing is added", Tested({20, 10, 5, 2}, {60, 13.3333, 13.3333, 13.3334}, 100),
         "KL20,KL10,KL5,KL2", "60.001|13.333|13.333|13.333"},
        {"a test that does not account for all is left", Tested({20, 2}, {60, 39.5}, 100),
         "KL20,KL2", "60.0|39.5"},
        {"a size outside the series keeps its mass to itself",
         Tested({0.5, 0.3, 0.25}, {50, 30, 20}, 100), "KL_5,KL_25", "50.0|20.0"},
        {"0.075 and 0.074 are two columns", Tested({0.075, 0.074}, {40, 60}, 100), "KL_075,KL_074",
         "40.0|60.0"},
        {"fines are the mass finer than 0.005 mm",
         Tested({2, 0.5, 0.075, 0.005, 0.002, 0}, {10, 20, 30, 25, 9.5, 5.5}, 100), "KL_005,KLHL",
         "25.0|15.0"},
        {"fines need a sieve of 0.005 mm above them", Tested({0.075, 0.002}, {70, 30}, 100), "KLHL",
         "0.0"},
        {"no items clear what was stored", Tested({}, {}, 100), "KL20,KLHL", "0.0|0.0"},
    };
    AddResultRow(",KL20,KLHL", ",77,NULL");
    Run("INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL,KL20) VALUES(12,'ZK3','6',1,88)");
    for (const auto& [reason, record, columns, stored] : cases) {
        SCOPED_TRACE(reason);
        EXPECT_EQ(Store(record), 1);
        EXPECT_EQ(Rows(std::string("SELECT ") + columns + " FROM Z_c_KeFen WHERE QYBH='5'"),
                  stored);
    }
    EXPECT_EQ(Rows("SELECT KL20,KL2 FROM Z_c_KeFen WHERE QYBH='6'"), "88|null");
}

TEST_F(ClassPercentageStore, OnlyTheClassesAreWritten) {
    AddResultRow(",KLSYFF,KLD10,KLBJXS", ",'密度计法',0.123456789,NULL");
    EXPECT_EQ(Store(Tested({2, 0}, {300, 200}, 500)), 1);
    EXPECT_EQ(Rows("SELECT GCSY,ZKBH,QYBH,KLSYFF,KL2,KL0,KLD10,KLTYZL,KLBJXS FROM Z_c_KeFen"),
              "12|ZK3|5|密度计法|60.0|40.0|0.123456789|500|null");
}

TEST_F(ClassPercentageStore, AMissingRowIsSilentAMissingTableIsNot) {
    EXPECT_EQ(Store(Tested({2}, {1}, 1)), 0);
    EXPECT_EQ(Box(), "");
    Run("DROP TABLE Z_c_KeFen");
    EXPECT_EQ(Store(Tested({2}, {1}, 1)), 0);
    EXPECT_EQ(Box(), "不能打开颗分试验表!请检查!");
}

TEST_F(ClassPercentageStore, AFailedWriteStillCountsAsDone) {
    AddResultRow(",KL20", ",77");
    Run("CREATE TRIGGER no BEFORE UPDATE ON Z_c_KeFen BEGIN SELECT RAISE(ABORT,'kept'); END");
    EXPECT_EQ(Store(Tested({2}, {500}, 500)), 1);
    EXPECT_EQ(Rows("SELECT KL20,KL2 FROM Z_c_KeFen"), "77|null");
    EXPECT_EQ(Box(), "");
}

}  // namespace
