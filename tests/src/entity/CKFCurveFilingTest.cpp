#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "src/common/module_state.h"
#include "src/entity/append_entity.h"
#include "tests/platform/db/Opened.h"
#include "tests/src/entity/CurveMaker.h"
#include "tests/src/entity/ListFiler.h"

namespace {

using testing::ElementsAreArray;

class CKFCurveFiling : public testing::Test {
protected:
    void SetUp() override { CKFCurve::rxInit(); }
    void TearDown() override {
        CKFCurve::rxRemove();
        ChartMode = kChartModeNotSet;
    }

    static void FillCurve(CKFCurve& curve, AcDbObjectId style = {}) {
        curve.SetIdentity(2, -3, "GC1", "ZK3", "5");
        CurveGrid grid;
        grid.gridOrigin = {48, 276, 0};
        grid.wideAxis = 1;
        grid.decadeLength = 25.5;
        grid.gridWidth = 160;
        grid.gridHeight = 65;
        SetGrid(curve, grid, 2.4);
        curve.SetPoints({{50, 270, 0}, {60, 250.5, 0}}, {{200, 210, 0}});
        curve.SetTextStyleId(style);
        curve.SetLayerKey("12", "4");
        curve.setColorIndex(257);
    }

    static std::vector<std::string> ExpectedWords(bool withLayer) {
        std::vector<std::string> words{"point 48,276,0",   "int32 2",    "point 50,270,0",
                                       "point 60,250.5,0", "int32 1",    "point 200,210,0",
                                       "int16 2",          "int16 -3",   "text GC1",
                                       "text ZK3",         "text 5",     "int16 1",
                                       "double 25.5",      "double 160", "double 65",
                                       "double 2.4",       "int32 0",    "bool 1",
                                       "uint16 257",       "int16 0",    "id"};
        if (withLayer) {
            words.insert(words.end(), {"int32 12", "int32 4"});
        }
        return words;
    }
};

TEST_F(CKFCurveFiling, OrderOfFieldsInBothChartModes) {
    AcDbDatabase drawing;
    CKFCurve curve;
    FillCurve(curve, drawing.textstyle());
    for (int mode : {kSampleCharts, kLayerCharts, kChartModeNotSet}) {
        ChartMode = mode;
        ListFiler filer;
        EXPECT_EQ(curve.dwgOutFields(&filer), Acad::eOk);
        EXPECT_THAT(filer.Words(), ElementsAreArray(ExpectedWords(mode == kLayerCharts))) << mode;
    }
}

TEST_F(CKFCurveFiling, WhatIsReadIsWhatWasWritten) {
    AcDbDatabase drawing;
    for (int mode : {kSampleCharts, kLayerCharts}) {
        ChartMode = mode;
        CKFCurve curve;
        SetUpCurve(curve, 0, StraightCurve());
        curve.SetTextStyleId(drawing.textstyle());
        curve.SetLayerKey("12", "4");
        curve.ComputeDiameters();
        ListFiler written;
        curve.dwgOutFields(&written);
        const auto words = written.Words();

        CKFCurve copy;
        copy.SetPoints({{1, 1, 1}}, {{2, 2, 2}});  // to be dropped
        copy.SetLayerKey("1", "1");
        EXPECT_EQ(copy.dwgInFields(&written), Acad::eOk);
        EXPECT_TRUE(written.items.empty());
        ListFiler again;
        copy.dwgOutFields(&again);
        EXPECT_EQ(again.Words(), words);

        ChartMode = kLayerCharts;
        ListFiler withLayer;
        copy.dwgOutFields(&withLayer);
        const auto layer = withLayer.Words().end()[-2];
        EXPECT_EQ(layer, mode == kLayerCharts ? "int32 12" : "int32 1") << "kept when not read";
    }
}

TEST_F(CKFCurveFiling, ComesBackFromADrawingFile) {
    ChartMode = kLayerCharts;
    const std::string path = testing::TempDir() + "curve_filing_test.dwg";
    std::vector<std::string> words;
    {
        AcDbDatabase drawing;
        auto curve = std::make_unique<CKFCurve>();
        FillCurve(*curve, drawing.textstyle());
        curve->ComputeDiameters();
        ListFiler filer;
        curve->dwgOutFields(&filer);
        words = filer.Words();
        ASSERT_FALSE(AppendOrDrop(&drawing, std::move(curve)).isNull());
        ASSERT_EQ(drawing.saveAs(path.c_str()), Acad::eOk) << drawing.lastFileError();
    }
    AcDbDatabase drawing(false);
    ASSERT_EQ(drawing.readDwgFile(path.c_str()), Acad::eOk) << drawing.lastFileError();
    std::filesystem::remove(path);
    int curves = 0;
    for (const AcDbStub& entry : drawing.entries()) {
        if (const auto* curve = dynamic_cast<const CKFCurve*>(entry.object.get())) {
            ++curves;
            ListFiler filer;
            Opened(curve->objectId(), AcDb::kForRead)->dwgOutFields(&filer);
            EXPECT_EQ(filer.Words(), words);
        }
    }
    EXPECT_EQ(curves, 1);
}

TEST_F(CKFCurveFiling, DamagedCountsEndWithTheData) {
    ListFiler filer;
    filer.writePoint3d({1, 2, 3});
    filer.writeInt32(2'000'000'000);
    filer.writePoint3d({4, 5, 6});
    CKFCurve curve;
    EXPECT_EQ(curve.dwgInFields(&filer), Acad::eOk);
    ListFiler written;
    curve.dwgOutFields(&written);
    const auto words = written.Words();
    EXPECT_EQ(words[0], "point 1,2,3");
    EXPECT_LE(words.size(), 25U);
}

TEST_F(CKFCurveFiling, LayerKeysAreLeadingIntegers) {
    const std::pair<const char*, const char*> cases[] = {{" 12a", "int32 12"},
                                                         {"-3", "int32 -3"},
                                                         {"+7", "int32 7"},
                                                         {"x2", "int32 0"},
                                                         {"", "int32 0"}};
    ChartMode = kLayerCharts;
    for (const auto& [text, filed] : cases) {
        CKFCurve curve;
        curve.SetLayerKey("9", text);
        ListFiler filer;
        curve.dwgOutFields(&filer);
        EXPECT_EQ(filer.Words().back(), filed) << text;
    }
}

TEST(CKFCurveClass, IsRegisteredAtLoadAndGoneAfterUnload) {
    for (int load = 0; load < 2; ++load) {
        ASSERT_EQ(CKFCurve::desc(), nullptr);
        CKFCurve::rxInit();
        AcRxClass* record = CKFCurve::desc();
        ASSERT_NE(record, nullptr);
        EXPECT_STREQ(record->name(), "CKFCurve");
        EXPECT_STREQ(record->dxfName(), "CKFCURVE");
        EXPECT_STREQ(record->appName(), "CKFCURVE");
        EXPECT_EQ(record->proxyFlags(), 255);
        int version = 0;
        int maintenance = 0;
        record->getClassVersion(version, maintenance);
        EXPECT_EQ(version, 23);
        EXPECT_EQ(maintenance, 6);

        const std::unique_ptr<AcRxObject> made(record->create());
        EXPECT_TRUE(made->isKindOf(CKFCurve::desc()));
        EXPECT_TRUE(made->isKindOf(AcDbEntity::desc()));
        EXPECT_TRUE(static_cast<CKFCurve&>(*made).IsChanged());
        CKFCurve::rxRemove();
    }
}

}  // namespace
