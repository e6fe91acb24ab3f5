#include "platform/ge/nurb_sampling.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Points = std::vector<AcGePoint3d>;

TEST(SampleNurbTest, WeightsMakeAQuarterCircleOfAParabola) {
    const double knots[] = {0, 0, 0, 1, 1, 1};
    const Points control{{1, 0, 2}, {1, 1, 2}, {0, 1, 2}};
    const double weights[] = {1, std::sqrt(0.5), 1};
    const Points samples = ge::SampleNurb({2, knots, control, weights}, 1e-4);
    ASSERT_GT(samples.size(), 10U);
    for (const AcGePoint3d& p : samples) {
        EXPECT_NEAR(std::hypot(p.x, p.y), 1.0, 1e-12);
        EXPECT_DOUBLE_EQ(p.z, 2.0);
    }
    EXPECT_TRUE(samples.front().isEqualTo(control.front()));
    EXPECT_TRUE(samples.back().isEqualTo(control.back()));
}

TEST(SampleNurbTest, RepeatedKnotsMakeCornersAndStraightPartsCostLittle) {
    const double knots[] = {0, 0, 1, 2, 2};
    const Points control{{0, 0, 0}, {5, 0, 0}, {5, 5, 0}};
    const Points samples = ge::SampleNurb({1, knots, control, {}}, 0.01);
    ASSERT_EQ(samples.size(), 5U);
    EXPECT_TRUE(samples[2].isEqualTo(control[1]));
}

TEST(SampleNurbTest, NumbersThatDoNotGoTogetherGiveNothing) {
    const double knots[] = {0, 0, 0, 0, 1, 1, 1};
    const Points control(4);
    const double weights[] = {1, 1};
    EXPECT_TRUE(ge::SampleNurb({3, knots, control, {}}, 0.01).empty());
    EXPECT_TRUE(ge::SampleNurb({2, knots, control, weights}, 0.01).empty());
    EXPECT_TRUE(ge::SampleNurb({0, knots, control, {}}, 0.01).empty());
    EXPECT_TRUE(ge::SampleNurb({}, 0.01).empty());
}

}  // namespace
