#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHostApplicationServices.h"
#include "src/common/module_state.h"
#include "tests/platform/db/Opened.h"
#include "tests/platform/db/RecordingWorldDraw.h"
#include "tests/src/RecordedMessages.h"
#include "tests/src/entity/CurveMaker.h"

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
        RecordingWorldDraw draw;
        EXPECT_TRUE(curve.worldDraw(&draw));
        EXPECT_THAT(draw.lines(), testing::Not(testing::Contains(testing::HasSubstr("poly"))));
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

    RecordingWorldDraw draw;
    curve.worldDraw(&draw);
    EXPECT_EQ(messages.Boxes().size(), 2U) << "told again at every drawing";

    std::vector<std::string> shown;
    VisitModelSpace(working, [&shown](const AcDbEntity& entity) {
        shown.push_back(std::string(entity.isA()->name()) + " " +
                        std::to_string(entity.colorIndex()));
    });
    EXPECT_THAT(shown, ElementsAre("AcDbLine 1", "AcDbSpline 2"));
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

TEST(CKFCurveDrawing, CurveFirstThenLabels) {
    CKFCurve curve;
    SetUpCurve(curve, 0, {PointAt(20, 1.0), PointAt(0.02, 0.0)});
    curve.setColorIndex(257);
    RecordingWorldDraw draw;
    EXPECT_TRUE(curve.worldDraw(&draw));

    char first[40];
    char last[40];
    std::snprintf(first, sizeof first, "(1) [3] polyline %g,200 ", PointAt(20, 1.0).x);
    std::snprintf(last, sizeof last, " %g,150", PointAt(0.02, 0.0).x);
    const std::string look = " towards 0 h 2.4 w 0.7 comfont.shx,hztxt.shx tracking 80";
    // d60 1.262, d30 0.159, d10 0.040: Cu 31.55, Cc 0.159² / (0.04 × 1.262) = 0.501
    EXPECT_THAT(draw.lines(),
                ElementsAre(testing::AllOf(testing::StartsWith(first), testing::EndsWith(last)),
                            "(2) [257] text =1.26 at 1,0" + look, "text =31.55 at 2,0" + look,
                            "text =0.159 at 3,0" + look, "text =0.040 at 4,0" + look,
                            "text =0.501 at 5,0" + look));
    EXPECT_THAT(curve.Diameters(), IsStraightCurve()) << "read while drawing";
}

std::vector<std::string> DrawnLabels(int chartType, const AcGePoint3dArray& points, int labels) {
    CKFCurve curve;
    SetUpCurve(curve, chartType, points, labels);
    RecordingWorldDraw draw;
    curve.worldDraw(&draw);
    std::vector<std::string> texts;
    for (const std::string& line : draw.lines()) {
        if (const std::size_t text = line.find("text "); text != std::string::npos) {
            texts.push_back(line.substr(text + 5, line.find(" at ") - text - 5));
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
    RecordingWorldDraw draw;
    draw.dragging = true;
    EXPECT_TRUE(curve.worldDraw(&draw));
    EXPECT_THAT(draw.lines(), IsEmpty());
    EXPECT_THAT(curve.Diameters(), IsEmpty());
}

}  // namespace
