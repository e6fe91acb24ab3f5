#include "src/core/percentages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using testing::DoubleEq;
using testing::DoubleNear;
using testing::Pointwise;

std::vector<double> Nudged(std::vector<double> masses, double total) {
    NudgeToHundred(masses, total);
    return masses;
}

auto AreNear(const std::vector<double>& values) {
    return Pointwise(DoubleNear(1e-9), values);
}

TEST(ShownPercentages, MassesThatShowAHundredStay) {
    const std::vector<double> masses{25.0, 30.0, 45.0};
    EXPECT_THAT(Nudged(masses, 100.0), Pointwise(DoubleEq(), masses));
}

TEST(ShownPercentages, ColumnsAreRaisedInTurnUntilTheSumShows) {
    // 33.3 three times is 99.9; the first column raised shows 33.4, and the others keep theirs.
    EXPECT_THAT(Nudged({1.6667, 1.6667, 1.6666}, 5.0), AreNear({1.6717, 1.6667, 1.6666}));
    // 12.46 shows 12.5: eight of them 100.0 though they are less; nothing to do.
    EXPECT_THAT(Nudged(std::vector<double>(8, 12.46), 100.0),
                AreNear(std::vector<double>(8, 12.46)));
}

TEST(ShownPercentages, EveryMassHasOneTurnAtMost) {
    // Half of the portion is on no sieve: no nudge can help, each mass is raised once.
    EXPECT_THAT(Nudged({20.0, 0.005, 30.0}, 100.0), AreNear({20.005, 0.005, 30.005}));
    // Masses at or below 0.01 have no turn, and those at or below 1e-5 do not count.
    EXPECT_THAT(Nudged({0.000001, 0.01}, 100.0), AreNear({0.000001, 0.01}));
}

TEST(ShownPercentages, TooLargeASumLowersMasses) {
    // 33.35 shows 33.4 (three times: 100.2), 33.345 shows 33.3.
    EXPECT_THAT(Nudged({33.352, 33.352, 33.352}, 100.0), AreNear({33.347, 33.347, 33.352}));
}

TEST(ShownPercentages, OneDecimal) {
    EXPECT_EQ(ShownPercentage(1.0, 3.0), "33.3");
    EXPECT_EQ(ShownPercentage(161.6, 161.6), "100.0");
}

}  // namespace
