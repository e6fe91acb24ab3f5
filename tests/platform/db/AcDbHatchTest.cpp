#include "platform/db/AcDbHatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/hatch_outline.h"
#include "platform/gi/ExtentsWorldDraw.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

class AcDbHatchTest : public DrawingFixture {
protected:
    /// A hatch over one circle of the drawing, as the layouts make their dots.
    std::unique_ptr<AcDbHatch> dot(const AcDbObjectId circle) {
        auto hatch = std::make_unique<AcDbHatch>();
        hatch->setNormal(AcGeVector3d::kZAxis);
        hatch->setAssociative(true);
        hatch->setPattern(AcDbHatch::kPreDefined, "SOLID");
        EXPECT_EQ(hatch->appendLoop(AcDbHatch::kDefault, {circle}), Acad::eOk);
        return hatch;
    }

    AcDbObjectId circleAt(const AcGePoint3d& center, double radius) {
        return append(std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius))
            ->objectId();
    }
};

TEST_F(AcDbHatchTest, ADotTakesItsGeometryFromItsCircle) {
    const AcDbObjectId circle = circleAt({10, 20, 0}, 1.5);
    std::unique_ptr<AcDbHatch> hatch = dot(circle);
    EXPECT_TRUE(hatch->isSolidFill());
    ASSERT_EQ(hatch->evaluateHatch(false), Acad::eOk);
    ASSERT_EQ(hatch->numLoops(), 1);
    ASSERT_EQ(hatch->loopAt(0).edges.size(), 1U);
    const auto& edge = std::get<AcDbHatch::CircularArcEdge>(hatch->loopAt(0).edges[0]);
    EXPECT_EQ(edge.center.x, 10);
    EXPECT_EQ(edge.center.y, 20);
    EXPECT_EQ(edge.radius, 1.5);
    EXPECT_EQ(edge.startAngle, 0.0);
    EXPECT_EQ(edge.endAngle, kTurn);
    EXPECT_TRUE(edge.counterClockwise);

    AcDbExtents box;
    EXPECT_EQ(hatch->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().x, 11.5, 1e-9);
    EXPECT_NEAR(box.minPoint().y, 18.5, 1e-9);

    AcDbObjectIdArray ids;
    EXPECT_EQ(hatch->getAssocObjIds(ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], circle);
    hatch->setAssociative(false);
    ids = {};
    EXPECT_EQ(hatch->getAssocObjIds(ids), Acad::eOk);
    EXPECT_TRUE(ids.isEmpty());
}

TEST_F(AcDbHatchTest, BoundariesThatAreNoCirclesOrNotFreeAreRefused) {
    AcDbHatch hatch;
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kDefault, {}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, ""), Acad::eInvalidInput);
    EXPECT_EQ(hatch.setNormal({0, 0, 0}), Acad::eInvalidInput);
    const AcDbObjectId line = append(std::make_unique<AcDbLine>())->objectId();
    EXPECT_EQ(dot(line)->evaluateHatch(), Acad::eNotApplicable);

    const AcDbObjectId circle = circleAt({0, 0, 0}, 1);
    {
        const Opened opened(circle);
        EXPECT_EQ(dot(circle)->evaluateHatch(), Acad::eNotApplicable);
    }
    EXPECT_EQ(dot(circle)->evaluateHatch(), Acad::eOk);
}

TEST_F(AcDbHatchTest, MovesWithItsLoops) {
    const auto hatch = dot(circleAt({10, 20, 0}, 1.5));
    ASSERT_EQ(hatch->evaluateHatch(), Acad::eOk);
    ASSERT_EQ(hatch->transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0}) *
                                 AcGeMatrix3d::scaling(2)),
              Acad::eOk);
    AcDbExtents box;
    ASSERT_EQ(hatch->getGeomExtents(box), Acad::eOk);
    EXPECT_TRUE(box.minPoint().isEqualTo({-23, 37, 0}, 1e-9));
    EXPECT_TRUE(box.maxPoint().isEqualTo({-17, 43, 0}, 1e-9));
    const auto& arc = std::get<AcDbHatch::CircularArcEdge>(hatch->loopAt(0).edges[0]);
    EXPECT_FALSE(arc.counterClockwise);
    const double start = arc.startAngle;
    EXPECT_EQ(hatch->transformBy(AcGeMatrix3d::rotation(1.0, AcGeVector3d::kZAxis)), Acad::eOk);
    EXPECT_NEAR(arc.startAngle, start - 1.0, 1e-12) << "a clockwise arc counts clockwise";
}

double areaOf(const db::Outline& outline) {
    double area = 0.0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const AcGePoint2d& a = outline[i];
        const AcGePoint2d& b = outline[(i + 1) % outline.size()];
        area += 0.5 * (a.x * b.y - b.x * a.y);
    }
    return area;
}

TEST(HatchOutlineTest, EveryKindOfEdgeBoundsItsArea) {
    AcDbHatch::Loop half;  // an upper half circle, clockwise, closed by a line
    half.edges = {AcDbHatch::CircularArcEdge{{0, 0}, 1, kTurn / 2, kTurn, false},
                  AcDbHatch::LineEdge{{1, 0}, {-1, 0}}};
    EXPECT_NEAR(areaOf(db::OutlineOf(half)), -kTurn / 4, 1e-2);

    AcDbHatch::Loop ellipse;
    ellipse.edges = {AcDbHatch::EllipticArcEdge{{5, 5}, {0, 3}, 0.5, 0, kTurn, true}};
    EXPECT_NEAR(areaOf(db::OutlineOf(ellipse)), kTurn / 2 * 3 * 1.5, 5e-2);

    AcDbHatch::Loop spline;  // the parabola y = x(2 - x), then back along y = 0
    spline.edges = {
        AcDbHatch::SplineEdge{2, false, false, {0, 0, 0, 1, 1, 1}, {{0, 0}, {1, 2}, {2, 0}}, {}}};
    EXPECT_NEAR(areaOf(db::OutlineOf(spline)), -4.0 / 3.0, 2e-2);

    AcDbHatch::Loop round;
    round.vertices = {{{0, 0}, 1.0}, {{2, 0}, 1.0}};
    EXPECT_NEAR(areaOf(db::OutlineOf(round)), kTurn / 2, 1e-2);
}

TEST(HatchOutlineTest, IslandsAreLeftOutAndPatternsEndAtTheEdges) {
    const db::Outline square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const db::Outline island{{4, 6}, {6, 6}, {6, 4}, {4, 4}};
    EXPECT_NEAR(areaOf(db::JoinOutlines({square, island})), 96.0, 1e-9);
    EXPECT_TRUE(db::JoinOutlines({}).empty());

    AcDbHatch::PatternLine family;
    family.base = {0, 5};
    family.offset = {0, -100};
    const ExtentsWorldDraw patient;
    const auto strokes = db::StrokesWithin(family, {square, island}, patient);
    ASSERT_EQ(strokes.size(), 2U);
    EXPECT_NEAR(strokes[0].start.x, 0, 1e-9);
    EXPECT_NEAR(strokes[0].end.x, 4, 1e-9);
    EXPECT_NEAR(strokes[1].start.x, 6, 1e-9);
    EXPECT_NEAR(strokes[1].end.x, 10, 1e-9);

    family.dashes = {3, -1};
    const auto dashed = db::StrokesWithin(family, {square}, patient);
    ASSERT_EQ(dashed.size(), 3U);
    EXPECT_NEAR(dashed[1].start.x, 4, 1e-9);
    EXPECT_NEAR(dashed[1].end.x, 7, 1e-9);
    EXPECT_NEAR(dashed[2].end.x, 10, 1e-9);

    family.angle = kTurn / 4;  // upwards
    family.base = {5, 0};
    family.offset = {-2, 0};
    family.dashes = {};
    EXPECT_EQ(db::StrokesWithin(family, {square}, patient).size(), 5U);
    family.offset = {0, 1e-9};
    EXPECT_TRUE(db::StrokesWithin(family, {square}, patient).empty());

    // Patterns that would take more than anybody draws.
    family.offset = {-1e-3, 0};
    family.dashes = {0.01, -0.01};
    EXPECT_TRUE(db::StrokesWithin(family, {square}, patient).empty()) << "too many strokes";
    family.dashes = {};
    EXPECT_EQ(db::StrokesWithin(family, {square}, ExtentsWorldDraw(100)).size(), 99U);
}

}  // namespace
