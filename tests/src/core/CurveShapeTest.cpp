#include "src/core/curve_shape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using testing::DoubleNear;
using testing::Pointwise;

GrainSizeRecord Sample(std::vector<double> sizes, std::vector<double> masses, double total) {
    GrainSizeRecord record;
    record.sizes = std::move(sizes);
    record.amounts = std::move(masses);
    record.totalMass = total;
    return record;
}

GrainSizeRecord Layer(std::vector<double> sizes, std::vector<double> fractions) {
    GrainSizeRecord record = Sample(std::move(sizes), std::move(fractions), 0.0);
    record.kind = RecordKind::layer;
    return record;
}

std::vector<double> Passing(const GrainSizeRecord& record) {
    std::vector<double> passing;
    EXPECT_TRUE(ComputePassing(record, passing));
    return passing;
}

auto IsNear(const std::vector<double>& values) {
    return Pointwise(DoubleNear(1e-12), values);
}

TEST(PercentPassing, MassOnNoSieveIsFinerThanAll) {
    EXPECT_THAT(Passing(Sample({60, 20, 5, 2, 0.5, 0.075}, {0, 50, 100, 150, 100, 50}, 500)),
                IsNear({1.0, 0.9, 0.7, 0.4, 0.2, 0.1}));
    EXPECT_THAT(Passing(Sample({2}, {30}, 120)), IsNear({0.75}));
    EXPECT_THAT(Passing(Sample({2, 0}, {30, 90}, 120)), IsNear({0.75, 0.0}));
}

TEST(PercentPassing, LayersSumTheirFractions) {
    EXPECT_THAT(Passing(Layer({20, 0.5}, {0.25, 0.40})), IsNear({0.75, 0.35}));
}

TEST(PercentPassing, RefusesMassesAboveTheTotal) {
    const std::tuple<const char*, GrainSizeRecord, bool> cases[] = {
        {"exactly the total", Sample({2, 0.5}, {60, 40}, 100), true},
        {"above within the tolerance", Sample({2, 0.5}, {60, 40.000005}, 100), true},
        {"above the tolerance", Sample({2, 0.5}, {60, 40.00002}, 100), false},
        {"a single mass above", Sample({2}, {100.1}, 100), false},
        {"a total of nothing", Sample({2, 0.5}, {0, 0}, 0), false},
        {"an infinite total", Sample({2, 0.5}, {1, 1}, HUGE_VAL), false},
        {"a negative total", Sample({2, 0.5}, {-60, -60}, -100), false},
    };
    for (const auto& [reason, record, accepted] : cases) {
        std::vector<double> passing{7.0};
        EXPECT_EQ(ComputePassing(record, passing), accepted) << reason;
        EXPECT_EQ(passing == std::vector<double>{7.0}, !accepted) << reason;
    }
}

TEST(CurveGrid, SizesRunFromTheLargestOnTheLeftToAThousandth) {
    const CurveGrid narrow = CurveGrid::For({10, 50, 0}, 160, 65, 100.0);
    EXPECT_EQ(narrow.wideAxis, 0);
    EXPECT_NEAR(narrow.decadeLength, 30.182, 1e-3);
    EXPECT_NEAR(narrow.XOfSize(200), 10.0, 1e-12);
    EXPECT_NEAR(narrow.XOfSize(100), 10.0 + std::log10(2.0) * narrow.decadeLength, 1e-12);
    EXPECT_NEAR(narrow.XOfSize(0.001), 170.0, 1e-12);
    EXPECT_DOUBLE_EQ(narrow.YOfPassing(1.0), 50.0);
    EXPECT_DOUBLE_EQ(narrow.YOfPassing(0.25), 50.0 - 0.75 * 65);

    const CurveGrid wide = CurveGrid::For({10, 50, 0}, 160, 65, 100.5);
    EXPECT_EQ(wide.wideAxis, 1);
    EXPECT_NEAR(wide.decadeLength, 25.393, 1e-3);
    EXPECT_NEAR(wide.XOfSize(2000), 10.0, 1e-12);
    for (const CurveGrid& grid : {narrow, wide}) {
        EXPECT_NEAR(grid.SizeOfX(grid.XOfSize(0.0862)), 0.0862, 1e-12);
    }
}

TEST(CurvePoints, ThePanIsNotPlotted) {
    const CurveGrid grid = CurveGrid::For({0, 100, 0}, 120, 50, 20);
    const AcGePoint3dArray points =
        CurvePoints(Sample({20, 2, 0}, {50, 50, 100}, 200), {0.75, 0.5, 0.0}, grid);
    ASSERT_EQ(points.length(), 2);
    EXPECT_TRUE(points[0].isEqualTo({grid.XOfSize(20), 87.5, 0}));
    EXPECT_TRUE(points[1].isEqualTo({grid.XOfSize(2), 75.0, 0}));
}

TEST(CurveShape, IsWhatTheChartOfThatKindShows) {
    // 16 columns make a long table, which takes from the grid's height.
    GrainSizeRecord many = Sample({}, {}, 160);
    for (int i = 0; i < 16; ++i) {
        many.sizes.push_back(20.0 / (i + 1));
        many.amounts.push_back(10);
    }
    const GrainSizeRecord few = Sample({20, 2, 0.2, 0.02}, {0, 100, 100, 100}, 300);
    const struct {
        const GrainSizeRecord& record;
        ChartKind kind;
        double width, height;
    } cases[] = {{few, ChartKindOf(0), 120, 50},
                 {many, ChartKindOf(1), 120, 40},
                 {many, ChartKindOf(2), 160, 65}};
    for (const auto& c : cases) {
        const std::optional<CurveShape> shape =
            ShapeOf(c.record, c.kind, CurveForm::plain, {30, 200, 0});
        ASSERT_TRUE(shape);
        EXPECT_EQ(shape->grid.gridWidth, c.width);
        EXPECT_EQ(shape->grid.gridHeight, c.height);
        EXPECT_EQ(shape->points.length(), static_cast<int>(c.record.sizes.size()));
        ASSERT_EQ(shape->diameters.size(), 8U);
    }
    // Straight from 20 mm at 100 % to 0.02 mm at 0 %: d(P) is 0.02 × 10^(3 P).
    EXPECT_THAT(ShapeOf(few, ChartKind::cumulative)->diameters,
                IsNear({14.159, 7.096, 1.262, 0.632, 0.159, 0.056, 0.040, 10.024}));
    EXPECT_FALSE(ShapeOf(Sample({2}, {100.1}, 100), ChartKind::result));
    EXPECT_THAT(ShapeOf(Sample({2}, {50}, 100), ChartKind::result)->diameters,
                testing::Each(kLevelNotReached));
}

}  // namespace
