#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

using testing::ElementsAre;
constexpr double kQuarter = std::numbers::pi / 2;

class EntityDrawingTest : public DrawingFixture {
protected:
    static std::unique_ptr<AcDbPolyline> polyline(const std::vector<AcDbPolyline::Vertex>& vertices,
                                                  bool closed = false) {
        auto result = std::make_unique<AcDbPolyline>();
        for (const AcDbPolyline::Vertex& v : vertices) {
            result->addVertexAt(result->numVerts(), v.point, v.bulge, v.startWidth, v.endWidth);
        }
        result->setClosed(closed);
        return result;
    }

    static AcDbExtents extentsOf(const AcDbEntity& entity) {
        AcDbExtents extents;
        EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
        return extents;
    }

    static void expectBox(const AcDbEntity& entity, const AcGePoint3d& low,
                          const AcGePoint3d& high) {
        const AcDbExtents box = extentsOf(entity);
        EXPECT_TRUE(box.minPoint().isEqualTo(low, 1e-9))
            << box.minPoint().x << ", " << box.minPoint().y << ", " << box.minPoint().z;
        EXPECT_TRUE(box.maxPoint().isEqualTo(high, 1e-9))
            << box.maxPoint().x << ", " << box.maxPoint().y << ", " << box.maxPoint().z;
    }
};

TEST_F(EntityDrawingTest, AnEntityOfADrawingHasItsOwnColourAFreeOneTheOneInForce) {
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 2, 3));
    line->setColorIndex(4);
    EXPECT_EQ(line->setColorIndex(258), Acad::eInvalidIndex);
    RecordingWorldDraw context;
    context.subEntityTraits().setColor(3);
    line->worldDraw(&context);
    EXPECT_THAT(context.lines(), ElementsAre("[3] polyline 0,0 1,2,3"));
    EXPECT_THAT(drawn(append(std::move(line))), ElementsAre("[4] polyline 0,0 1,2,3"));
}

TEST_F(EntityDrawingTest, PolylinesDrawRunsArcsAndWidths) {
    EXPECT_THAT(drawn(append(polyline({{{0, 0}}, {{4, 0}}, {{4, 3}}}, true))),
                ElementsAre("[256] polyline 0,0 4,0 4,3 0,0"));
    // A half circle below the chord, then one back above it.
    EXPECT_THAT(drawn(append(polyline({{{0, 0}, 1.0}, {{2, 0}, 1.0}, {{0, 0}}}))),
                ElementsAre("[256] arc 1,0 r 1 from 180 by 180", "arc 1,0 r 1 from 0 by 180"));
    EXPECT_THAT(drawn(append(polyline({{{0, 0}, -1.0}, {{2, 0}}}))),
                ElementsAre("[256] arc 1,0 r 1 from 0 by 180"));
    const double quarterBulge = std::tan(kQuarter / 4);
    EXPECT_THAT(drawn(append(polyline({{{1, 0}, quarterBulge}, {{0, 1}}, {{0, 2}}}))),
                ElementsAre("[256] arc 0,0 r 1 from 0 by 90", "polyline 0,1 0,2"));
    EXPECT_THAT(drawn(append(polyline({{{0, 0}}, {{2, 0}, 0, 0.5, 1}, {{2, 5}}, {{9, 5}}}))),
                ElementsAre("[256] polyline 0,0 2,0", "wide 2,0 2,5 w 0.5 1", "polyline 2,5 9,5"));
    EXPECT_TRUE(drawn(append(polyline({{{0, 0}}}))).empty());
    EXPECT_TRUE(drawn(append(polyline({}, true))).empty());
}

TEST_F(EntityDrawingTest, StraightPolylinesExplodeIntoLines) {
    AcDbVoidPtrArray pieces;
    EXPECT_EQ(polyline({{{0, 0}, 0.5}, {{4, 0}}})->explode(pieces), Acad::eNotApplicable);
    EXPECT_EQ(polyline({{{0, 0}}})->explode(pieces), Acad::eNotApplicable);
    EXPECT_TRUE(pieces.isEmpty());
    const auto triangle = polyline({{{0, 0}}, {{4, 0}, 0, 1, 1}, {{4, 3}}}, true);
    triangle->setColorIndex(6);
    ASSERT_EQ(triangle->explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 3);
    for (void* const piece : pieces) {
        const std::unique_ptr<AcDbLine> line(
            static_cast<AcDbLine*>(static_cast<AcDbEntity*>(piece)));
        EXPECT_EQ(line->colorIndex(), 6);
        if (piece == pieces[2]) {
            EXPECT_TRUE(line->startPoint().isEqualTo({4, 3, 0}));
            EXPECT_TRUE(line->endPoint().isEqualTo({0, 0, 0}));
        }
    }
}

TEST_F(EntityDrawingTest, VerticesAreInsertedBeforeAnIndex) {
    AcDbPolyline line;
    EXPECT_EQ(line.addVertexAt(1, {0, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(line.addVertexAt(0, {0, 0}, 0, 0.7, 0.7), Acad::eOk);
    EXPECT_EQ(line.addVertexAt(0, {5, 0}, 0, 0.7), Acad::eOk);
    EXPECT_EQ(line.vertexAt(0), (AcDbPolyline::Vertex{{5, 0}, 0, 0.7, 0.0}));
    EXPECT_EQ(line.vertexAt(1), (AcDbPolyline::Vertex{{0, 0}, 0, 0.7, 0.7}));
}

TEST_F(EntityDrawingTest, TextsTakeTheFontsOfTheirStyle) {
    const AcDbObjectId style = addTextStyle("QV_FONT", "ComFont.shx", "Hztxt.shx");
    auto text = std::make_unique<AcDbText>(AcGePoint3d(1, 2, 0), "粒径"_gbk, style, 3.0, kQuarter);
    text->setWidthFactor(0.7);
    const AcDbText* const appended = append(std::move(text));
    EXPECT_THAT(drawn(const_cast<AcDbText*>(appended)),
                ElementsAre(std::string("[256] text ") + "粒径"_gbk +
                            " at 1,2 towards 90 h 3 w 0.7 ComFont.shx,Hztxt.shx"));
    AcDbText upright({1, 2, 0}, "粒径d6"_gbk, style, 3.0);
    upright.setWidthFactor(0.7);
    expectBox(upright, {1, 2, 0}, {1 + 4 * 2.1, 5, 0});
    AcDbExtents untouched;
    EXPECT_EQ(AcDbText({1, 2, 0}, "").getGeomExtents(untouched), Acad::eDegenerateGeometry);
    EXPECT_TRUE(untouched.isEmpty());
}

TEST_F(EntityDrawingTest, ExtentsHoldWhatIsDrawn) {
    expectBox(AcDbLine({3, 1, 0}, {0, 2, 5}), {0, 1, 0}, {3, 2, 5});
    expectBox(AcDbCircle({3, 1, 0}, AcGeVector3d::kZAxis, 2), {1, -1, 0}, {5, 3, 0});
    expectBox(AcDbCircle({3, 1, 4}, AcGeVector3d::kXAxis, 2), {3, -1, 2}, {3, 3, 6});
    expectBox(*polyline({{{0, 0}, 1.0}, {{2, 0}}}), {0, -1, 0}, {2, 0, 0});
    expectBox(*polyline({{{0, 0}, 0, 2, 2}, {{5, 0}}}), {0, -1, 0}, {5, 1, 0});
    const AcDbSpline spline(AcGePoint3dArray{{0, 0, 0}, {10, 7, 0}, {20, 0, 0}});
    expectBox(spline, {0, 0, 0}, {20, 7, 0});
}

TEST_F(EntityDrawingTest, TransformsKeepEachEntityWhatItIs) {
    const AcGeMatrix3d turned = AcGeMatrix3d::translation({10, 0, 0}) *
                                AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kZAxis) *
                                AcGeMatrix3d::scaling(2);
    const AcGeMatrix3d mirrored = AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0});
    AcGeMatrix3d uneven;
    uneven.entry[0][0] = 2.0;

    AcDbLine line({1, 0, 0}, {2, 0, 0});
    EXPECT_EQ(line.transformBy(uneven), Acad::eOk);
    EXPECT_TRUE(line.endPoint().isEqualTo({4, 0, 0}));

    AcDbCircle circle({1, 2, 3}, AcGeVector3d::kZAxis, 2);
    EXPECT_EQ(circle.transformBy(uneven), Acad::eNotApplicable);
    EXPECT_EQ(circle.transformBy(turned), Acad::eOk);
    EXPECT_TRUE(circle.center().isEqualTo({6, 2, 6}));
    EXPECT_DOUBLE_EQ(circle.radius(), 4.0);
    EXPECT_EQ(circle.transformBy(AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kXAxis)),
              Acad::eOk);
    EXPECT_TRUE(circle.center().isEqualTo({6, -6, 2}));
    EXPECT_TRUE(circle.normal().isEqualTo({0, -1, 0}));

    const auto bulged = polyline({{{1, 0}, 0.5, 0.1, 0.2}, {{3, 0}}});
    EXPECT_EQ(bulged->transformBy(uneven), Acad::eNotApplicable);
    EXPECT_EQ(bulged->transformBy(mirrored), Acad::eOk);
    EXPECT_EQ(bulged->vertexAt(0), (AcDbPolyline::Vertex{{-1, 0}, -0.5, 0.1, 0.2}));
    EXPECT_EQ(bulged->transformBy(AcGeMatrix3d::scaling(2)), Acad::eOk);
    EXPECT_EQ(bulged->vertexAt(0), (AcDbPolyline::Vertex{{-2, 0}, -0.5, 0.2, 0.4}));

    AcDbSpline spline(AcGePoint3dArray{{0, 0, 0}, {1, 2, 0}, {4, 0, 0}});
    EXPECT_EQ(spline.transformBy(turned), Acad::eOk);
    EXPECT_TRUE(spline.fitPointAt(1).isEqualTo({6, 2, 0}));
    AcGePoint3dArray found;
    const AcDbLine level({-99, 2, 0}, {99, 2, 0});
    EXPECT_EQ(spline.intersectWith(&level, AcDb::kOnBothOperands, found), Acad::eOk);
    EXPECT_EQ(found.length(), 1);
}

TEST_F(EntityDrawingTest, MirroredTextsStayReadableInTheImageOfTheirFrame) {
    const AcGeMatrix3d upright = AcGeMatrix3d::mirroring({50, 0, 0}, {50, 1, 0});
    const AcGeMatrix3d level = AcGeMatrix3d::mirroring({0, 50, 0}, {1, 50, 0});
    const AcGeMatrix3d turn =
        AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kZAxis) * AcGeMatrix3d::scaling(2);
    const std::tuple<const char*, double, AcGeMatrix3d, double> cases[] = {
        {"level text across", 0, upright, 0},
        {"level text upwards", 0, level, 0},
        {"standing text across", kQuarter, upright, kQuarter},
        {"standing text upwards", kQuarter, level, kQuarter},
        {"turned and twice as large", 0, turn, kQuarter}};
    for (const auto& [why, rotation, transform, newRotation] : cases) {
        SCOPED_TRACE(why);
        AcDbText text({10, 20, 0}, "d60", AcDbObjectId::kNull, 3, rotation);
        AcDbExtents expected;
        const AcDbExtents before = extentsOf(text);
        for (AcGePoint3d corner : {before.minPoint(), before.maxPoint()}) {
            expected.addPoint(corner.transformBy(transform));
        }
        EXPECT_EQ(text.transformBy(transform), Acad::eOk);
        EXPECT_NEAR(text.rotation(), newRotation, 1e-12);
        expectBox(text, expected.minPoint(), expected.maxPoint());
    }
}

TEST_F(EntityDrawingTest, WhereLinesAndSplinesMeet) {
    const AcDbSpline spline(AcGePoint3dArray{{0, 0, 0}, {10, 10, 0}, {20, 0, 0}});
    const AcDbLine backwards({30, 5, 0}, {-10, 5, 0});
    AcGePoint3dArray points;
    points.append({7, 7, 7});
    EXPECT_EQ(backwards.intersectWith(&spline, AcDb::kOnBothOperands, points), Acad::eOk);
    ASSERT_EQ(points.length(), 3);
    EXPECT_LT(points[1].x, points[2].x);  // the spline's order, behind what was there

    points = {};
    const AcDbLine rising({0, 0, 0}, {10, 10, 0});
    EXPECT_EQ(rising.intersectWith(&backwards, AcDb::kOnBothOperands, points), Acad::eOk);
    ASSERT_EQ(points.length(), 1);
    EXPECT_TRUE(points[0].isEqualTo({5, 5, 0}));
    const AcDbLine beside({0, 0, 0}, {4, 4, 0});
    EXPECT_EQ(beside.intersectWith(&backwards, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_EQ(points.length(), 1);
}

TEST_F(EntityDrawingTest, IntersectionsThatHaveNoMeaningSayWhy) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const AcDbLine level({0, 1, 0}, {9, 1, 0});
    const AcDbLine broken({0, nan, 0}, {9, 1, 0});
    const AcDbCircle circle({0, 0, 0}, AcGeVector3d::kZAxis, 1);
    const AcDbSpline spline(AcGePoint3dArray{{0, 0, 0}, {10, 10, 0}});
    const AcDbSpline point(AcGePoint3dArray{{3, 3, 0}, {3, 3, 0}});
    const AcDbSpline endless(AcGePoint3dArray{{0, 0, 0}, {nan, 1, 0}, {9, 9, 0}});
    AcGePoint3dArray points;
    const auto meet = [&points](const AcDbEntity& a, const AcDbEntity* b) {
        return a.intersectWith(b, AcDb::kOnBothOperands, points);
    };
    EXPECT_EQ(meet(point, &level), Acad::eDegenerateGeometry);
    EXPECT_EQ(meet(AcDbSpline(AcGePoint3dArray()), &level), Acad::eDegenerateGeometry);
    EXPECT_EQ(meet(endless, &level), Acad::eInvalidInput);
    EXPECT_EQ(meet(spline, &broken), Acad::eInvalidInput);
    EXPECT_EQ(meet(spline, &circle), Acad::eNotApplicable);
    EXPECT_EQ(meet(circle, &level), Acad::eNotApplicable);
    EXPECT_EQ(meet(spline, nullptr), Acad::eNullObjectPtr);
    EXPECT_TRUE(points.isEmpty());
}

}  // namespace
