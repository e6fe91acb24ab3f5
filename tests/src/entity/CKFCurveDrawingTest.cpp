#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHostApplicationServices.h"
#include "src/common/module_state.h"
#include "tests/src/RecordedMessages.h"
#include "tests/src/entity/CurveMaker.h"
#include "tests/src/entity/ListFiler.h"
#include "tests/src/entity/RecordingDraw.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

// Levels in the order d95, d85, d60, d50, d30, d15, d10, d90 of 0.02 × 10^(3 P), three decimals.
auto IsStraightCurve() {
    return ElementsAre(14.159, 7.096, 1.262, 0.632, 0.159, 0.056, 0.04, 10.024);
}

/// Straight from 20 mm at 100 % to 12 % passing at 0.0458 mm.
AcGePoint3dArray EndsAt12Percent() {
    return {PointAt(20, 1.0), PointAt(0.0458, 0.12)};
}

AcGePoint3dArray WithUnplottablePoint() {
    return {PointAt(20, 1.0), PointAt(-1.0, 0.5), PointAt(0.02, 0.0)};
}

TEST(CKFCurveDiameters, StraightCurveIsReadExactly) {
    for (int extra : {0, 9}) {
        AcGePoint3dArray points = StraightCurve();
        if (extra > 0) {
            points = {};
            for (int i = 0; i <= extra; ++i) {
                const double passing = 1.0 - i / static_cast<double>(extra);
                points.append(PointAt(0.02 * std::pow(10.0, 3 * passing), passing));
            }
        }
        CKFCurve curve;
        SetUpCurve(curve, 0, points);
        curve.ComputeDiameters();
        EXPECT_THAT(curve.Diameters(), IsStraightCurve()) << extra;
    }
}

TEST(CKFCurveDiameters, LevelsThatTheCurveMissesAreMinusOne) {
    CKFCurve curve;
    SetUpCurve(curve, 0, EndsAt12Percent());
    curve.ComputeDiameters();
    ASSERT_EQ(curve.Diameters().size(), 8U);
    EXPECT_EQ(curve.Diameters()[kD10], -1.0);
    EXPECT_NEAR(curve.Diameters()[kD15], 0.0563, 0.0006);
}

TEST(CKFCurveDiameters, ALevelCrossedAgainIsReadWhereTheCurveComesFirst) {
    CKFCurve curve;
    SetUpCurve(curve, 0,
               {PointAt(20, 1.0), PointAt(2, 0.3), PointAt(0.6, 0.7), PointAt(0.02, 0.0)});
    curve.ComputeDiameters();
    for (const DiameterIndex level : {kD60, kD50}) {  // each crossed three times
        EXPECT_GT(curve.Diameters()[level], 2.0);
    }
    EXPECT_LT(curve.Diameters()[kD15], 0.6);
}

TEST(CKFCurveDiameters, FewerThanTwoPlacesGiveNone) {
    const AcGePoint3d place = PointAt(2, 0.5);
    for (const AcGePoint3dArray& points :
         {AcGePoint3dArray{}, AcGePoint3dArray{place}, AcGePoint3dArray{place, place}}) {
        const RecordedMessages messages;
        CKFCurve curve;
        SetUpCurve(curve, 0, points);
        curve.ComputeDiameters();
        EXPECT_THAT(curve.Diameters(), Each(-1.0));
        EXPECT_EQ(curve.Diameters().size(), 8U);
        RecordingDraw draw;
        EXPECT_TRUE(curve.worldDraw(&draw));
        EXPECT_THAT(draw.calls, testing::Not(testing::Contains(testing::StartsWith("poly"))));
        EXPECT_THAT(messages.Boxes(), IsEmpty());
    }
}

TEST(CKFCurveDiameters, AnUnreadableLevelIsToldAndShownOnce) {
    AcDbDatabase working;
    acdbHostApplicationServices()->setWorkingDatabase(&working);
    CKFCurve curve;
    SetUpCurve(curve, 0, WithUnplottablePoint());
    const RecordedMessages messages;
    curve.ComputeDiameters();
    EXPECT_THAT(messages.Boxes(), ElementsAre("计算d95时出错，请检查输入的数据!"));
    EXPECT_THAT(curve.Diameters(), IsEmpty());

    RecordingDraw draw;
    curve.worldDraw(&draw);
    EXPECT_EQ(messages.Boxes().size(), 2U) << "told again at every drawing";

    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(working.getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* modelSpace = nullptr;
    ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, modelSpace, AcDb::kForRead), Acad::eOk);
    std::vector<std::string> shown;
    for (AcDbObjectId id : modelSpace->entityIds()) {
        AcDbEntity* entity = nullptr;
        ASSERT_EQ(acdbOpenObject(entity, id, AcDb::kForRead), Acad::eOk);
        shown.push_back(std::string(entity->isA()->name()) + " " +
                        std::to_string(entity->colorIndex()));
        entity->close();
    }
    modelSpace->close();
    blocks->close();
    EXPECT_THAT(shown, ElementsAre("AcDbLine 1", "AcDbSpline 2"));
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

TEST(CKFCurveDrawing, CurveFirstThenLabels) {
    CKFCurve curve;
    SetUpCurve(curve, 0, {PointAt(20, 1.0), PointAt(0.02, 0.0)});
    curve.setColorIndex(257);
    RecordingDraw draw;
    EXPECT_TRUE(curve.worldDraw(&draw));

    char polyline[100];
    std::snprintf(polyline, sizeof polyline, "polyline %.7g,200 to %.7g,150", PointAt(20, 1.0).x,
                  PointAt(0.02, 0.0).x);
    // d60 1.262, d30 0.159, d10 0.040: Cu 31.55, Cc 0.159² / (0.04 × 1.262) = 0.501
    EXPECT_THAT(draw.calls,
                ElementsAre("marker 1", "color 3", polyline, "marker 2", "color 257",
                            "text 1,0 =1.26", "marker 2", "color 257", "text 2,0 =31.55",
                            "marker 2", "color 257", "text 3,0 =0.159", "marker 2", "color 257",
                            "text 4,0 =0.040", "marker 2", "color 257", "text 5,0 =0.501"));
    EXPECT_THAT(curve.Diameters(), IsStraightCurve()) << "read while drawing";
    for (const AcGiTextStyle& style : draw.textStyles) {
        EXPECT_STREQ(style.fileName(), "comfont.shx");
        EXPECT_STREQ(style.bigFontFileName(), "hztxt.shx");
        EXPECT_EQ(style.xScale(), 0.7);
        EXPECT_EQ(style.trackingPercent(), 80.0);
        EXPECT_EQ(style.textSize(), 2.4);
    }
}

std::vector<std::string> DrawnLabels(int chartType, const AcGePoint3dArray& points, int labels) {
    CKFCurve curve;
    SetUpCurve(curve, chartType, points, labels);
    RecordingDraw draw;
    curve.worldDraw(&draw);
    std::vector<std::string> texts;
    for (const std::string& call : draw.calls) {
        if (call.starts_with("text ")) {
            texts.push_back(call.substr(call.find(' ', 5) + 1));
        }
    }
    return texts;
}

TEST(CKFCurveDrawing, LabelsByChartType) {
    EXPECT_THAT(DrawnLabels(2, StraightCurve(), 7),
                ElementsAre("14.2", "1.26", "0.632", "0.159", "0.040", "31.55", "0.501"));
    EXPECT_THAT(DrawnLabels(2, StraightCurve(), 5),
                ElementsAre("14.2", "1.26", "0.632", "0.159", "0.040"));
    EXPECT_THAT(DrawnLabels(1, StraightCurve(), 7),
                ElementsAre("=1.26", "=31.55", "=0.159", "=0.040", "=0.501"));
    EXPECT_THAT(DrawnLabels(2, EndsAt12Percent(), 7),
                ElementsAre("14.2", "1.26", "0.632", "0.159", "", "", ""));
    EXPECT_THAT(DrawnLabels(0, EndsAt12Percent(), 5),
                ElementsAre("=1.26", "=", "=0.159", "=", "="));
}

TEST(CKFCurveDrawing, ADragDrawsNothing) {
    CKFCurve curve;
    SetUpCurve(curve, 0, StraightCurve());
    RecordingDraw draw;
    draw.dragging = true;
    EXPECT_TRUE(curve.worldDraw(&draw));
    EXPECT_THAT(draw.calls, IsEmpty());
    EXPECT_THAT(curve.Diameters(), IsEmpty());
}

}  // namespace
