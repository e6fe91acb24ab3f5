#include "platform/ge/AcGeCubicSplineCurve3d.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "tests/platform/ge/ReferenceSpline.h"

namespace {

constexpr double kExact = 1e-9;
using Points = std::vector<AcGePoint3d>;

/// A grading curve that falls to the right, as charts have it.
Points fallingCurve(std::mt19937& random, int count) {
    std::uniform_real_distribution<double> step(3.0, 5.0);
    Points points{{40.0, 250.0, 0.0}};
    while (static_cast<int>(points.size()) < count) {
        const AcGePoint3d& last = points.back();
        points.emplace_back(last.x + step(random), last.y - step(random), 0.0);
    }
    return points;
}

/// A curve after grips were dragged anywhere.
Points wildCurve(std::mt19937& random, int count) {
    std::uniform_real_distribution<double> place(0.0, 100.0);
    Points points;
    for (int i = 0; i < count; ++i) {
        points.emplace_back(place(random), place(random), 0.0);
    }
    return points;
}

Points meet(const Points& fitPoints, const AcGePoint3d& start, const AcGePoint3d& end) {
    Points found;
    AcGeCubicSplineCurve3d(fitPoints).intersectWith(start, end, found);
    return found;
}

/// Where the curve meets the level line over all of its width.
Points meetLevel(const Points& fitPoints, double y) {
    return meet(fitPoints, {-1000.0, y, 0.0}, {1000.0, y, 0.0});
}

void expectSame(const Points& found, const std::vector<ReferenceSpline::Place>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i].x, static_cast<double>(expected[i].x), kExact);
        EXPECT_NEAR(found[i].y, static_cast<double>(expected[i].y), kExact);
    }
}

TEST(AcGeCubicSplineCurve3dTest, IsTheNaturalCubicByChordLengths) {
    std::mt19937 random(1);
    for (const int count : {2, 3, 4, 20}) {
        const Points points = wildCurve(random, count);
        const AcGeCubicSplineCurve3d curve(points);
        const ReferenceSpline reference(points);
        for (std::size_t piece = 0; piece < reference.pieces(); ++piece) {
            const long double from = reference.param(piece);
            EXPECT_NEAR(curve.knots()[piece], static_cast<double>(from), 1e-12);
            for (const long double u : {0.0L, 0.1L, 0.5L, 0.93L, 1.0L}) {
                const long double param = from + u * (reference.param(piece + 1) - from);
                const AcGePoint3d p = curve.evalPoint(static_cast<double>(param));
                EXPECT_NEAR(p.x, static_cast<double>(reference.at(piece, u).x), 1e-11);
                EXPECT_NEAR(p.y, static_cast<double>(reference.at(piece, u).y), 1e-11);
            }
        }
    }
}

TEST(AcGeCubicSplineCurve3dTest, PointsThatCoincideCountOnceAndOneIsNoCurve) {
    const AcGePoint3d a(0, 0, 5);
    const AcGePoint3d b(3, 4, 5);
    const AcGeCubicSplineCurve3d segment(Points{a, a, b, b, b});
    EXPECT_EQ(segment.knots().size(), 2U);
    EXPECT_DOUBLE_EQ(segment.endParam(), 5.0);
    EXPECT_TRUE(segment.evalPoint(2.5).isEqualTo({1.5, 2.0, 5.0}));
    EXPECT_TRUE(segment.evalPoint(-1.0).isEqualTo(a));
    EXPECT_TRUE(segment.evalPoint(9.0).isEqualTo(b));

    for (const Points& few : {Points{}, Points{a}, Points{a, a}}) {
        const AcGeCubicSplineCurve3d none(few);
        EXPECT_FALSE(none.isValid());
        EXPECT_TRUE(none.samplePoints(0.1).empty());
        EXPECT_TRUE(meet(few, {-1, 0, 0}, {1, 0, 0}).empty());
    }
}

TEST(AcGeCubicSplineCurve3dTest, LevelsMeetWhereTheReferenceSaysInTheCurvesOrder) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> level(-20.0, 120.0);
    std::size_t several = 0;
    for (int round = 0; round < 60; ++round) {
        const Points points = wildCurve(random, 3 + round % 18);
        const double y = level(random);
        const Points found = meetLevel(points, y);
        SCOPED_TRACE(testing::Message() << "round " << round << ", level " << y);
        expectSame(found, ReferenceSpline(points).crossings(0, 1, y));
        several += found.size() > 2 ? 1 : 0;
    }
    EXPECT_GT(several, 20U);
}

TEST(AcGeCubicSplineCurve3dTest, ObliqueSegmentsMeetWithinTheirEndsOnly) {
    std::mt19937 random(3);
    const Points ends = wildCurve(random, 120);
    std::size_t total = 0;
    for (std::size_t round = 0; round < 60; ++round) {
        const Points points = wildCurve(random, 12);
        const AcGePoint3d& a = ends[2 * round];
        const AcGePoint3d& b = ends[2 * round + 1];
        const AcGeVector3d d = b - a;
        auto expected = ReferenceSpline(points).crossings(
            -d.y, d.x, static_cast<long double>(d.x) * a.y - static_cast<long double>(d.y) * a.x);
        std::erase_if(expected, [&](const ReferenceSpline::Place& p) {
            const long double along = (p.x - a.x) * d.x + (p.y - a.y) * d.y;
            return along < 0 || along > d.dotProduct(d);
        });
        SCOPED_TRACE(testing::Message() << "round " << round);
        expectSame(meet(points, a, b), expected);
        total += expected.size();
    }
    EXPECT_GT(total, 60U);
}

TEST(AcGeCubicSplineCurve3dTest, EveryLevelOfAFallingCurveMeetsOnceEndsIncluded) {
    std::mt19937 random(4);
    for (int round = 0; round < 20; ++round) {
        const Points points = fallingCurve(random, 20);
        for (const AcGePoint3d& p : points) {  // at a knot that two pieces share
            const Points found = meetLevel(points, p.y);
            ASSERT_EQ(found.size(), 1U);
            EXPECT_NEAR(found[0].x, p.x, kExact);
        }
        const double top = points.front().y;
        const double bottom = points.back().y;
        for (const double rounding : {-3e-13, 3e-13}) {
            EXPECT_EQ(meetLevel(points, top + rounding).size(), 1U);
            EXPECT_EQ(meetLevel(points, bottom + rounding).size(), 1U);
        }
        EXPECT_TRUE(meetLevel(points, top + 1e-7).empty());
        EXPECT_TRUE(meetLevel(points, bottom - 1e-7).empty());
    }
}

TEST(AcGeCubicSplineCurve3dTest, ATangentTouchesOnce) {
    // Symmetric: the top is the middle fit point.
    const Points symmetric{{0, 0, 0}, {10, 7, 0}, {20, 0, 0}};
    ASSERT_EQ(meetLevel(symmetric, 7.0).size(), 1U);
    EXPECT_NEAR(meetLevel(symmetric, 7.0)[0].x, 10.0, kExact);

    // The top is somewhere inside a piece.
    std::mt19937 random(5);
    std::uniform_real_distribution<double> rise(1.0, 60.0);
    for (int round = 0; round < 40; ++round) {
        const double left = rise(random);
        const Points points{{0, 0, 0}, {30, left, 0}, {60, left * 0.9, 0}, {99, -rise(random), 0}};
        const ReferenceSpline reference(points);
        const long double topParam = reference.top(1);
        const ReferenceSpline::Place top = reference.at(1, topParam);
        const auto y = static_cast<double>(top.y);
        SCOPED_TRACE(testing::Message() << "round " << round << ", top " << y);
        const Points found = meetLevel(points, y);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_NEAR(found[0].x, static_cast<double>(top.x), kExact);
        EXPECT_NEAR(found[0].y, y, kExact);
        EXPECT_EQ(meetLevel(points, y + 1e-8).size(), 0U);
        EXPECT_EQ(meetLevel(points, y - 1e-9).size(), 2U) << "two, however close";
        const double below = y - 1e-8;
        expectSame(meetLevel(points, below), {reference.levelBetween(1, below, 0, topParam),
                                              reference.levelBetween(1, below, topParam, 1)});
    }
}

TEST(AcGeCubicSplineCurve3dTest, ASegmentMayEndOnTheCurveButNotShortOfIt) {
    const Points points{{0, 0, 0}, {10, 10, 0}, {20, 5, 0}};
    const AcGePoint3d on = meetLevel(points, 4.0).at(0);
    for (const AcGeVector3d& direction : {AcGeVector3d(5, 0, 0), AcGeVector3d(-3, 4, 0)}) {
        EXPECT_EQ(meet(points, on, on - direction).size(), 1U);
        EXPECT_EQ(meet(points, on - direction, on).size(), 1U);
        EXPECT_EQ(meet(points, on - direction, on - direction * 1e-7).size(), 0U);
    }
    EXPECT_EQ(meet(points, on, on).size(), 1U);
    EXPECT_EQ(meet(points, on + AcGeVector3d(1, 0, 0), on + AcGeVector3d(1, 0, 0)).size(), 0U);
}

TEST(AcGeCubicSplineCurve3dTest, PiecesThatLieOnTheSegmentGiveTheirEnds) {
    const Points straight{{0, 1, 0}, {4, 1, 0}, {10, 1, 0}};
    const auto xs = [](const Points& found) {
        std::vector<double> result;
        for (const AcGePoint3d& p : found) {
            result.push_back(std::round(p.x * 1e9) / 1e9);
        }
        return result;
    };
    EXPECT_EQ(xs(meetLevel(straight, 1.0)), (std::vector<double>{0, 4, 10}));
    EXPECT_EQ(xs(meet(straight, {3, 1, 0}, {12, 1, 0})), (std::vector<double>{3, 4, 10}));
    EXPECT_EQ(xs(meet(straight, {8, 1, 0}, {6, 1, 0})), (std::vector<double>{6, 8}));
    EXPECT_TRUE(meet(straight, {11, 1, 0}, {12, 1, 0}).empty());
}

TEST(AcGeCubicSplineCurve3dTest, CoordinatesThatAreNotFiniteMeetNothing) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    const Points points{{0, 0, 0}, {10, 10, 0}};
    EXPECT_TRUE(meet(points, {0, nan, 0}, {10, nan, 0}).empty());
    EXPECT_TRUE(meet(points, {-inf, 5, 0}, {inf, 5, 0}).empty());
    EXPECT_TRUE(meet({{0, 0, 0}, {nan, 3, 0}, {9, 9, 0}}, {0, 5, 0}, {10, 5, 0}).empty());
    EXPECT_TRUE(meet({{0, 0, 0}, {1e200, 3, 0}, {9, 9, 0}}, {0, 5, 0}, {10, 5, 0}).empty());
}

TEST(AcGeCubicSplineCurve3dTest, SamplesStayWithinTheChordErrorAndKeepTheFitPoints) {
    std::mt19937 random(6);
    const Points points = wildCurve(random, 9);
    const AcGeCubicSplineCurve3d curve(points);
    for (const double error : {1.0, 0.01}) {
        const Points samples = curve.samplePoints(error);
        std::size_t chord = 0;
        double worst = 0.0;
        for (double t = 0.0; t < curve.endParam(); t += curve.endParam() / 20'000) {
            const AcGePoint3d p = curve.evalPoint(t);
            const auto offset = [&](std::size_t i) {
                const AcGeVector3d d = samples[i + 1] - samples[i];
                const double along =
                    std::clamp((p - samples[i]).dotProduct(d) / d.dotProduct(d), 0.0, 1.0);
                return p.distanceTo(samples[i] + d * along);
            };
            while (chord + 2 < samples.size() && offset(chord + 1) < offset(chord)) {
                ++chord;
            }
            worst = std::max(worst, offset(chord));
        }
        EXPECT_LE(worst, error);
        EXPECT_GT(worst, error / 100);
        for (const AcGePoint3d& p : points) {
            EXPECT_TRUE(std::any_of(samples.begin(), samples.end(),
                                    [&p](const AcGePoint3d& s) { return s.isEqualTo(p); }));
        }
    }
}

}  // namespace
