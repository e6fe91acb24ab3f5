#include "src/core/characteristic_diameters.h"

#include <gtest/gtest.h>

namespace {

constexpr double kNone = kLevelNotReached;

TEST(CharacteristicDiameters, CoefficientsNeedTheirDiameters) {
    //                                        95 85  60   50    30    15    10    90
    const std::array<double, 8> complete{2, 1, 0.3, 0.2, 0.08, 0.04, 0.02, 1.5};
    EXPECT_DOUBLE_EQ(Uniformity(complete).value(), 15.0);
    EXPECT_DOUBLE_EQ(Curvature(complete).value(), 0.08 * 0.08 / (0.02 * 0.3));

    const std::array<double, 8> noD10{2, 1, 0.3, 0.2, 0.08, 0.04, kNone, 1.5};
    EXPECT_FALSE(Uniformity(noD10));
    EXPECT_FALSE(Curvature(noD10));
    const std::array<double, 8> tinyD30{2, 1, 0.3, 0.2, 0.0001, 0.04, 0.02, 1.5};
    EXPECT_TRUE(Uniformity(tinyD30));
    EXPECT_FALSE(Curvature(tinyD30)) << "0.0001 counts as not determined";
    EXPECT_FALSE(Uniformity(std::span(complete).first(6))) << "interrupted before d10";
    EXPECT_FALSE(Curvature({}));
    // The same bound holds for what is made of them.
    const std::array<double, 8> steep{200, 150, 100, 50, 0.001, 0.0009, 0.0008, 180};
    EXPECT_TRUE(Uniformity(steep));
    EXPECT_FALSE(Curvature(steep)) << "0.0000125";
    const std::array<double, 8> reversed{2, 1, 0.0002, 1, 1, 1, 2.0, 1};
    EXPECT_FALSE(Uniformity(reversed)) << "0.0001";
    EXPECT_TRUE(Curvature(reversed));
}

}  // namespace
