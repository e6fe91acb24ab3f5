#include "src/core/guarded_curve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "src/core/MonotoneCubic.h"
#include "src/core/curve_shape.h"

namespace {

/// A sample as laboratories could have it: some of the usual sieves, and a mass that is even, or
/// mostly on few of them, or on one.
GrainSizeRecord RandomSample(std::mt19937& random) {
    const auto share = [&] { return std::uniform_real_distribution<>()(random); };
    GrainSizeRecord record;
    double retained = 0.0;
    const double skew = 1.0 + 8.0 * share();
    const double density = 0.3 + 0.7 * share();
    for (const double size : {100, 60, 40, 20, 10, 5, 2}) {
        record.sizes.push_back(size);
    }
    for (const double size : {1.0, 0.5, 0.25, 0.1, 0.075, 0.05, 0.02, 0.01, 0.005, 0.002}) {
        record.sizes.push_back(size * (0.9 + 0.1 * share()));
    }
    std::erase_if(record.sizes, [&](double) { return share() > density; });
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        const double mass = std::round(1000.0 * std::pow(share(), skew)) / 10.0;
        record.amounts.push_back(share() < 0.1 ? 0.0 : mass);
        retained += record.amounts.back();
    }
    record.totalMass = retained * (share() < 0.5 ? 1.0 : 1.0 + share());
    return record;
}

/// What strays are allowed, and what they are at least where they are not, as chords tell it.
constexpr double kBound = 0.05;
constexpr double kBarely = 0.0495;

/// The most that the curve runs back (drawing units), and rises or leaves the range (percent).
struct Strays {
    double back = 0.0;
    double percent = 0.0;
};

Strays StraysOf(const CurveShape& shape) {
    Strays strays;
    double right = -1e9;
    double lowest = 1e9;
    for (const AcGePoint3d& point : shape.curve.samplePoints(0.0002)) {
        right = std::max(right, point.x);
        lowest = std::min(lowest, point.y);
        strays.back = std::max(strays.back, right - point.x);
        for (const double stray :
             {point.y - lowest, point.y - shape.grid.Top(), shape.grid.Bottom() - point.y}) {
            strays.percent = std::max(strays.percent, stray / shape.grid.gridHeight * 100.0);
        }
    }
    return strays;
}

/// Whether the diameters are in order, each between the sizes measured around its level. A level at
/// which the curve lies flat may be met at any of its sizes.
bool DiametersFit(const CurveShape& shape, const GrainSizeRecord& record,
                  const std::vector<double>& passing) {
    constexpr double kRounding = 0.0005 + 1e-7;
    const auto firstUpTo = [&](double share) {
        return static_cast<std::size_t>(
            std::find_if(passing.begin(), passing.end(), [&](double p) { return p <= share; }) -
            passing.begin());
    };
    double coarser = 1e9;
    for (const int i : {kD95, kD90, kD85, kD60, kD50, kD30, kD15, kD10}) {
        const double level = kDiameterLevels[static_cast<std::size_t>(i)].percent / 100.0;
        const std::size_t from = firstUpTo(level + 1e-12);
        const std::size_t to = firstUpTo(level - 1e-12);
        const double diameter = shape.diameters[static_cast<std::size_t>(i)];
        if (diameter == kLevelNotReached) {
            if (from > 0 && to < passing.size()) {
                return false;
            }
            continue;
        }
        if (from == passing.size() || to == 0 || diameter > coarser ||
            diameter > record.sizes[from - (from > 0 ? 1 : 0)] + kRounding ||
            diameter < record.sizes[std::min(to, passing.size() - 1)] - kRounding) {
            return false;
        }
        coarser = diameter;
    }
    return true;
}

/// The shape again without one of its points.
CurveShape Without(CurveShape shape, int index) {
    shape.points.removeAt(index);
    shape.curve = CurveThrough(shape.points);
    ReadDiameters(shape.curve, shape.grid, shape.diameters);
    return shape;
}

TEST(GuardedCurve, HoldsForEverySample) {
    std::mt19937 random(13);
    int guarded = 0;
    for (int sample = 0; sample < 10'000; ++sample) {
        const GrainSizeRecord record = RandomSample(random);
        const ChartKind kind = ChartKindOf(sample % 3);
        std::vector<double> passing;
        if (record.sizes.size() < 2 || !ComputePassing(record, passing)) {
            continue;
        }
        SCOPED_TRACE(sample);
        const CurveShape plain = *ShapeOf(record, kind, CurveForm::plain, {30, 240, 0});
        const CurveShape shape = *ShapeOf(record, kind, CurveForm::guarded, {30, 240, 0});
        const Strays strays = StraysOf(shape);
        ASSERT_LT(strays.back, kBound);
        ASSERT_LT(strays.percent, kBound);
        ASSERT_TRUE(DiametersFit(shape, record, passing));

        int measured = 0;
        std::vector<int> added;
        for (int i = 0; i < shape.points.length(); ++i) {
            const bool own = measured == plain.points.length() ||
                             !(shape.points[i].x == plain.points[measured].x &&
                               shape.points[i].y == plain.points[measured].y);
            own ? added.push_back(i) : static_cast<void>(++measured);
        }
        ASSERT_EQ(measured, plain.points.length()) << "every measured point, as it was";
        if (added.empty()) {
            continue;
        }
        ++guarded;
        const Strays before = StraysOf(plain);
        ASSERT_TRUE(before.back > kBarely || before.percent > kBarely ||
                    !DiametersFit(plain, record, passing))
            << "no point that is not needed";
        for (std::size_t i = 0; i < added.size() && sample % 100 == 0; ++i) {
            const CurveShape less = Without(shape, added[i]);
            const Strays without = StraysOf(less);
            ASSERT_TRUE(without.back > kBarely || without.percent > kBarely ||
                        !DiametersFit(less, record, passing))
                << "none that can be left out";
        }
    }
    EXPECT_GT(guarded, 1000);
}

TEST(MonotoneCubic, StaysBetweenThePointsOfEachPiece) {
    std::mt19937 random(29);
    std::uniform_int_distribution<> step(0, 9);
    for (int round = 0; round < 1000; ++round) {
        std::vector<AcGePoint3d> points{{0, 0, 0}};
        while (points.size() < 5) {
            points.push_back(points.back() + AcGeVector3d(step(random), step(random) - 5, 0));
        }
        const MonotoneCubic cubic(points);
        for (std::size_t piece = 0; piece < 4; ++piece) {
            const AcGePoint3d a = points[piece];
            const AcGePoint3d b = points[piece + 1];
            for (const double share : {0.05, 0.1, 0.3, 0.5, 0.8, 0.95}) {
                const AcGePoint3d twiceAsFar = a + (b - a) * (2.0 * share);
                const double y = cubic.Between(piece, a, twiceAsFar).y;
                ASSERT_GE(y, std::min(a.y, b.y) - 1e-9) << round;
                ASSERT_LE(y, std::max(a.y, b.y) + 1e-9) << round;
            }
        }
    }
}

TEST(GuardedCurve, TwoMassesOnOneSizeAndPointsThatRiseAreFollowed) {
    const CurveGrid grid = CurveGrid::For({0, 50, 0}, 120, 50, 20);
    const auto points = [&](std::initializer_list<std::pair<double, double>> values) {
        AcGePoint3dArray list;
        for (const auto& [size, passing] : values) {
            list.append({grid.XOfSize(size), grid.YOfPassing(passing), 0.0});
        }
        return list;
    };
    const AcGePoint3dArray cases[] = {
        points({{20, 1.0}, {2, 0.97}, {2, 0.2}, {0.5, 0.19}, {0.075, 0.1}}),
        points({{20, 1.0}, {2, 0.3}, {0.5, 0.35}, {0.25, 0.9}, {0.075, 0.0}}),
        points({{20, 1.1}, {2, 1.1}, {2, 1.1}, {1.9, 0.0}, {0.075, -0.2}})};
    for (const AcGePoint3dArray& measured : cases) {
        const AcGePoint3dArray guarded = GuardedPoints(measured, grid);
        EXPECT_TRUE(std::is_sorted(guarded.begin(), guarded.end(),
                                   [](const auto& a, const auto& b) { return a.x < b.x; }))
            << "each point stands in its piece";
        const int added = guarded.length() - measured.length();
        EXPECT_GT(added, 0);
        EXPECT_LT(added, 30) << "in few steps";
    }
    EXPECT_EQ(GuardedPoints({}, grid).length(), 0);
    EXPECT_EQ(GuardedPoints({{0, 0, 0}, {NAN, 1, 0}}, grid).length(), 2);
}

}  // namespace
