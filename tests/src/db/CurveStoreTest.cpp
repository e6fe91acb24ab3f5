#include "src/db/result_stores.h"

#include <gtest/gtest.h>

#include "src/common/module_state.h"
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

}  // namespace
