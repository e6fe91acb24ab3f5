#include "lab/hydrometer/hydrometer.h"

#include <gtest/gtest.h>

#include "lab/Failure.h"
#include "lab/hydrometer/joint.h"

using lab::HydrometerTest;
using lab::HydrometerType;

namespace {
constexpr HydrometerType kTypes[] = {HydrometerType::kA, HydrometerType::kB, HydrometerType::k152H};

/// A reading of 30 g, dry mass 30 g, specific gravity 2.70, corrected by +0.5 and -1.
HydrometerTest TestOf(HydrometerType type, double minutes, double celsius) {
    const bool density = type == HydrometerType::kB;
    HydrometerTest test{"ZK1", "1-1", type, 30.0, 2.70, {}};
    test.readings = {{minutes, density ? 1.0180 : 25.0, celsius, density ? 0.0004 : 0.5,
                      density ? 0.0006 : 1.0, lab::PatternFallDepth(type)}};
    return test;
}
}  // namespace

TEST(HydrometerTest, FormulasAgreeWithHandCalculation) {
    const std::tuple<HydrometerType, double, double, double, double> cases[] = {
        // R = 25 + 0.5 - 1 + 0.6, C_s = 2.70/1.701768 * 1.651768/2.65; L = 16.3 - 0.1641 * 25.5
        {HydrometerType::kA, 1.0, 22.0, 0.0457828, 82.741},
        // R - 1 = 0.0180 + 0.0004 - 0.0006 + 0.0004, C_s' = 2.70/1.701768; L = 16.3 - 0.2645 * 18.4
        {HydrometerType::kB, 1.0, 22.0, 0.0444749, 96.0827},
        // R = 25 + 0.5 - 1 + 0.6928; μ = 9.547e-3 g/(cm·s), ρ_w = 0.99777 g/cm³
        {HydrometerType::k152H, 1.0, 22.0, 0.0456742, 83.038},
        {HydrometerType::kA, 1440.0, 20.0, 0.00123573, 80.763},
    };
    for (const auto& [type, minutes, celsius, size, finer] : cases) {
        const HydrometerTest test = TestOf(type, minutes, celsius);
        EXPECT_NEAR(lab::GrainSize(test, test.readings[0]), size, size * 2e-5)
            << lab::HydrometerName(type);
        EXPECT_NEAR(lab::PercentFiner(test, test.readings[0]), finer, 0.002)
            << lab::HydrometerName(type);
    }
}

TEST(HydrometerTest, TablesOfTheStandardFollowTheLawsOfWaterAndGlass) {
    constexpr double kGlass = 25e-6;              // expansion of the bulb, 1/°C
    constexpr double kGram = 1.65 / 2.65 / 1000;  // density that a gram in a litre adds
    for (double celsius = 10.0; celsius <= 30.0; celsius += 0.25) {
        const double lost =
            lab::WaterDensity(20.0) - lab::WaterDensity(celsius) - kGlass * (celsius - 20.0);
        EXPECT_NEAR(lab::TemperatureCorrection(HydrometerType::kB, celsius), lost, 0.00012)
            << celsius;
        EXPECT_NEAR(lab::TemperatureCorrection(HydrometerType::kA, celsius), lost / kGram, 0.15)
            << celsius;
        EXPECT_NEAR(lab::TemperatureCorrection(HydrometerType::k152H, celsius),
                    (lab::WaterDensity(20.0) - lab::WaterDensity(celsius)) / 0.6226e-3, 0.001)
            << celsius;
        const double viscosity = lab::WaterViscosity(HydrometerType::k152H, celsius);
        EXPECT_NEAR(lab::WaterViscosity(HydrometerType::kA, celsius), viscosity, 0.012 * viscosity)
            << celsius;
    }
    const auto viscosity = [](double celsius) {
        return lab::WaterViscosity(HydrometerType::kA, celsius);
    };
    for (double celsius = 10.5; celsius <= 29.5; celsius += 0.5) {
        const double between = (viscosity(celsius - 0.5) + viscosity(celsius + 0.5)) / 2.0;
        EXPECT_NEAR(viscosity(celsius), between, 0.003) << "a slip in the row of " << celsius;
    }
}

TEST(HydrometerTest, GrainsFallByStokesLaw) {
    for (const HydrometerType type : kTypes) {
        const auto size = [&](double minutes, double celsius) {
            const HydrometerTest test = TestOf(type, minutes, celsius);
            return lab::GrainSize(test, test.readings[0]);
        };
        EXPECT_NEAR(size(4.0, 20.0), size(1.0, 20.0) / 2.0, 1e-12);
        EXPECT_LT(size(1.0, 25.0), size(1.0, 15.0)) << "water is thinner when it is warm";
    }
}

TEST(JointTest, TheFinePartTakesWhatPassesTheFinestSieve) {
    HydrometerTest test{"ZK1", "1-1", HydrometerType::k152H, 50.0, 2.70, {}};
    for (const auto& [minutes, reading] : {std::pair(0.25, 45.0), {2.0, 30.0}, {60.0, 12.0}}) {
        test.readings.push_back({minutes, reading, 20.0, 0.0, 0.0, {16.3, 0.1641}});
    }
    const lab::Sample sieves{
        "ZK1", "1-1", {}, {}, "", 200.0, {{2.0, 40.0}, {0.075, 60.0}, {0.0, 99.0}}};
    const lab::Joint joint = lab::Join(sieves, test);
    // 0.6226 * 2.7/1.7 * 100/50 = 1.97767 percent a gram; the first size is above the finest sieve.
    ASSERT_EQ(joint.points.size(), 3U);
    EXPECT_FALSE(joint.points[0].joined);
    EXPECT_NEAR(joint.points[1].finer, 59.330, 0.001);
    EXPECT_NEAR(*joint.jump, 50.0 * (1.0 - 0.59330), 0.001);
    double sum = 0.0;
    std::vector<double> sizes;
    for (const lab::SieveItem& item : joint.items) {
        sum += *item.mass;
        sizes.push_back(*item.size);
    }
    EXPECT_NEAR(sum, 200.0, 1e-9);
    ASSERT_EQ(sizes.size(), 5U);
    EXPECT_EQ(sizes[1], 0.075);
    EXPECT_EQ(sizes[2], joint.points[1].size);
    EXPECT_EQ(sizes[4], 0.0);
    EXPECT_NEAR(*joint.items[2].mass, 100.0 * (1.0 - 0.59330), 0.001);
    EXPECT_NEAR(*joint.items[4].mass, 100.0 * 0.23732, 0.001);

    lab::Sample none = sieves;
    none.items = {{0.001, 10.0}};
    EXPECT_THROW(lab::Join(none, test), lab::Failure) << "no size below the finest sieve";
    none.items = {{joint.points[2].size, 10.0}};
    EXPECT_THROW(lab::Join(none, test), lab::Failure) << "none but the finest sieve's own";
    none.items = {{0.075, 200.0}};
    EXPECT_THROW(lab::Join(none, test), lab::Failure) << "nothing passes it";
    none.items.clear();
    const lab::Joint alone = lab::Join(none, test);
    EXPECT_EQ(alone.items.size(), 4U);
    EXPECT_FALSE(alone.jump.has_value());
}
