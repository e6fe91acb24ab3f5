#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <numbers>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbText.h"
#include "src/common/module_state.h"
#include "tests/platform/db/RecordingWorldDraw.h"
#include "tests/src/entity/CurveMaker.h"
#include "tests/src/entity/ListFiler.h"

namespace {

std::vector<std::string> Filed(const CKFCurve& curve) {
    ListFiler filer;
    curve.dwgOutFields(&filer);
    return filer.Words();
}

class CKFCurveEditing : public testing::Test {
protected:
    void SetUp() override {
        SetUpCurve(curve_, 0, StraightCurve());
        curve_.ComputeDiameters();
        curve_.StoreToDatabase();  // nowhere, as no chart mode is set: the curve counts as stored
        CurveDataChanged = 0;
    }
    void TearDown() override { CurveDataChanged = 0; }
    void Draw() {
        RecordingWorldDraw draw;
        curve_.worldDraw(&draw);
    }

    CKFCurve curve_;
};

TEST_F(CKFCurveEditing, MovedGripsReshapeTheCurve) {
    AcGePoint3dArray grips;
    AcDbIntArray modes;
    AcDbIntArray ids;
    EXPECT_EQ(curve_.getGripPoints(grips, modes, ids), Acad::eOk);
    ASSERT_EQ(grips.length(), 3);
    EXPECT_TRUE(grips[1].isEqualTo(StraightCurve()[1]));
    EXPECT_TRUE(modes.isEmpty() && ids.isEmpty());
    ASSERT_FALSE(curve_.IsChanged());

    const double d50 = curve_.Diameters()[kD50];
    EXPECT_EQ(curve_.moveGripPointsAt({1}, {0, -5, 0}), Acad::eOk);
    EXPECT_TRUE(curve_.IsChanged());
    EXPECT_EQ(CurveDataChanged, 1);
    Draw();
    EXPECT_GT(curve_.Diameters()[kD50], d50) << "40 % at the old d50";

    EXPECT_EQ(curve_.moveGripPointsAt({0, 2}, {1, 2, 0}), Acad::eOk);
    grips = {};
    curve_.getGripPoints(grips, modes, ids);
    EXPECT_TRUE(grips[0].isEqualTo(StraightCurve()[0] + AcGeVector3d(1, 2, 0)));
    EXPECT_TRUE(grips[2].isEqualTo(StraightCurve()[2] + AcGeVector3d(1, 2, 0)));
}

TEST_F(CKFCurveEditing, UnknownGripsMoveNothing) {
    const auto before = Filed(curve_);
    EXPECT_EQ(curve_.moveGripPointsAt({0, 3}, {1, 0, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(curve_.moveGripPointsAt({-1}, {1, 0, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(Filed(curve_), before);
    EXPECT_EQ(CurveDataChanged, 0);
}

TEST_F(CKFCurveEditing, OnlyMapsThatKeepTheXDirectionAreTaken) {
    const std::tuple<const char*, AcGeMatrix3d, bool> cases[] = {
        {"move", AcGeMatrix3d::translation({10, 3, 0}), true},
        {"mirror in a horizontal line", AcGeMatrix3d::mirroring({0, 175, 0}, {1, 175, 0}), true},
        {"rotate", AcGeMatrix3d::rotation(std::numbers::pi / 2, AcGeVector3d::kZAxis), false},
        {"scale", AcGeMatrix3d::scaling(2.0), false},
        {"mirror in a vertical line", AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0}), false},
    };
    for (const auto& [name, map, taken] : cases) {
        CKFCurve curve;
        SetUpCurve(curve, 0, StraightCurve());
        const auto before = Filed(curve);
        EXPECT_EQ(curve.transformBy(map), taken ? Acad::eOk : Acad::eNotApplicable) << name;
        EXPECT_EQ(Filed(curve) == before, !taken) << name;
        EXPECT_EQ(Filed(curve)[0], "point 100,200,0") << name << ": the grid stays";
    }
}

TEST_F(CKFCurveEditing, MovingTheCurveInItsGridChangesTheDiametersOnly) {
    const double decade = TestGrid().decadeLength;
    EXPECT_EQ(curve_.transformBy(AcGeMatrix3d::translation({decade, 0, 0})), Acad::eOk);
    EXPECT_FALSE(curve_.IsChanged());
    Draw();
    EXPECT_FALSE(curve_.IsChanged());
    EXPECT_EQ(curve_.Diameters()[kD50], 0.063) << "a decade finer";
}

TEST(CKFCurveExplosion, GivesSplineAndTexts) {
    AcDbDatabase drawing;
    const std::pair<int, std::vector<std::string>> cases[] = {
        {0, {"=1.26", "=31.55", "=0.159", "=0.040", "=0.501"}},
        {2, {"14.2", "1.26", "0.632", "0.159", "0.040", "31.55", "0.501"}}};
    for (const auto& [chartType, texts] : cases) {
        CKFCurve curve;
        SetUpCurve(curve, chartType, StraightCurve(), static_cast<int>(texts.size()));
        curve.ComputeDiameters();
        curve.SetTextStyleId(drawing.textstyle());
        AcDbVoidPtrArray parts;
        EXPECT_EQ(curve.explode(parts), Acad::eOk);
        std::vector<std::unique_ptr<AcDbEntity>> entities;
        for (void* part : parts) {
            entities.emplace_back(static_cast<AcDbEntity*>(part));
        }
        ASSERT_EQ(entities.size(), texts.size() + 1);
        const auto* spline = dynamic_cast<const AcDbSpline*>(entities[0].get());
        ASSERT_NE(spline, nullptr);
        EXPECT_EQ(spline->colorIndex(), 3);
        EXPECT_EQ(spline->numFitPoints(), 3);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const auto* text = dynamic_cast<const AcDbText*>(entities[i + 1].get());
            ASSERT_NE(text, nullptr);
            EXPECT_EQ(text->textString(), texts[i]);
            EXPECT_TRUE(text->position().isEqualTo({static_cast<double>(i) + 1.0, 0, 0}));
            EXPECT_EQ(text->height(), 2.4);
            EXPECT_EQ(text->rotation(), 0.0);
            EXPECT_EQ(text->widthFactor(), 0.7);
            EXPECT_EQ(text->textStyle(), drawing.textstyle());
        }
    }
}

TEST_F(CKFCurveEditing, AStoredCurveHasNothingToStore) {
    EXPECT_EQ(curve_.StoreToDatabase(), 2);
    curve_.moveGripPointsAt({0}, {0, 0, 0});
    EXPECT_EQ(curve_.StoreToDatabase(), 1) << "no chart mode: nowhere to write, but done";
    EXPECT_FALSE(curve_.IsChanged());
}

}  // namespace
