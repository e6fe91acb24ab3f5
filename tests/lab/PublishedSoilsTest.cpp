// Gradings that laboratories have published (data/, with their sources), read as tables: percent
// passing, diameters, coefficients and shares against what was published with them, and by hand.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <span>

#include "lab/numbers.h"
#include "lab/results/result_tables.h"
#include "lab/results/soil_shares.h"
#include "lab/sample_record.h"
#include "lab/tables/table_files.h"
#include "platform/win32/file_replace.h"
#include "src/core/curve_shape.h"

namespace {
constexpr std::pair<DiameterIndex, double> kLevels[] = {{kD10, 10}, {kD30, 30}, {kD60, 60}};
constexpr double kRounding = 0.0005;  // diameters have three decimals

/// Sizes beside each other with a level between them, mm, and the percentages finer.
struct Step {
    double fine, below, coarse, above;

    double Part(double level) const { return (level - below) / (above - below); }
    double OverSize(double level) const { return fine + (coarse - fine) * Part(level); }
    double OverLogarithm(double level) const { return fine * std::pow(coarse / fine, Part(level)); }
};

struct Soil {
    const char* name;                        // borehole and sample
    std::array<Step, 3> steps;               // around the levels; none where the data end above one
    const char* shares;                      // gravel, sand, silt, clay: by hand
    std::array<double, 3> diameters = {};    // as published, straight lines over size
    std::optional<double> uniformity = {};   // as published, one digit that counts
    std::optional<double> finerThan63 = {};  // as published, μm
    double off = 0.125;                      // of a step, see CheckDiameter
};

const Soil kNorwegian[] = {
    {"NGI A ISO",
     {{{0.063, 4.97, 0.125, 22.32}, {0.125, 22.32, 0.25, 64.92}, {0.125, 22.32, 0.25, 64.92}}},
     "0.2 90.4 - - ",
     {0.080975, 0.147535, 0.235563}},
    {"NGI A 5g",
     {{{0.063, 4.4, 0.125, 26.2}, {0.125, 26.2, 0.25, 66.4}, {0.125, 26.2, 0.25, 66.4}}},
     "0.8 89.3 - - ",
     {0.0789266, 0.136816, 0.230099}},
    {"NGI B ISO",
     {{{0.5, 7.77, 1, 19.08}, {1, 19.08, 2, 38.67}, {2, 38.67, 4, 65.08}}},
     "61.3 38.3 - - ",
     {0.598585, 1.557427, 3.615297}},
    {"NGI C ISO",
     {{{0.25, 9, 0.5, 11.1}, {2, 22.8, 4, 31.3}, {8, 45.2, 16, 64.4}}},
     "77.2 - - - ",
     {0.369048, 3.694118, 14.166667}},
    {"NGI C",
     {{{0.5, 9.5, 1, 13.5}, {4, 26.4, 8, 38.9}, {16, 56.6, 31.5, 78.1}}},
     "80.8 - - - ",
     {0.5625, 5.152, 18.451163}},
};
const Soil kBritish[] = {
    {"BH01 2",
     {{{0.00149, 8, 0.00271, 14}, {0.0166, 27, 0.0227, 30}, {1.18, 59, 2, 63}}},
     "37 24.2 21.3 17.5 ",
     {},
     800,
     37.5},
    {"BH02 8",
     {{{0.00154, 6, 0.00284, 15}, {0.00484, 20, 0.00939, 30}, {1.18, 59, 2, 63}}},
     "37 19.4 23.1 20.5 ",
     {},
     700,
     42.6},
    {"BH103 22",
     {{{0.02, 9, 0.063, 12}, {0.3, 21, 0.6, 32}, {1.18, 49, 2, 67}}},
     "33 54.4 7.1 5.5 "},
    {"BH103 34", {{{0.6, 9, 1.18, 15}, {2, 22, 3.35, 35}, {3.35, 35, 6.3, 60}}}, "78 21.8 0.2 0 "},
    {"BH303 15", {{{0.3, 8, 0.6, 26}, {0.6, 26, 1.18, 37}, {6.3, 53, 10, 63}}}, "59 39.6 - - "},
};
const Soil kDutch[] = {
    {"BHR000000336088 1",
     {{{}, {0.008, 25.9, 0.016, 34.8}, {0.125, 53.4, 0.18, 92}}},
     "0 58.2 20.2 21.6 ",
     {},
     {},
     41.2},
    {"BHR000000336089 1",
     {{{0.125, 9.5, 0.18, 50.7}, {0.125, 9.5, 0.18, 50.7}, {0.18, 50.7, 0.25, 80.5}}},
     "2.1 92.4 2.4 3.1 ",
     {},
     {},
     5.0,
     0.5},
};

/// Straight over the logarithm of size, but for a part of the step: a parabola through three points
/// is off the straight line between two of them by an eighth of the difference of its two steps. A
/// curve through points on the sheet stands nearly upright where a sand is so uniform that 41 %
/// lie between two sieves and 3.5 % on the next: there it need only pass between them.
void CheckDiameter(const Soil& soil, const Step& step, double level, double diameter) {
    if (step.fine == 0.0) {
        EXPECT_EQ(diameter, kLevelNotReached);
        return;
    }
    const double hand = step.OverLogarithm(level);
    const double ratio = std::pow(step.coarse / step.fine, soil.off);
    EXPECT_GE(diameter, std::max(step.fine, hand / ratio) - kRounding) << level;
    EXPECT_LE(diameter, std::min(step.coarse, hand * ratio) + kRounding) << level;
}

/// With sizes that double from sieve to sieve, straight lines over size and over its logarithm are
/// up to 6 % apart, the curve and the latter 9 %: an eighth is allowed.
void CheckCoefficient(const std::optional<double>& coefficient, double published, double d10) {
    ASSERT_TRUE(coefficient);
    EXPECT_NEAR(*coefficient, published, published * (0.125 + kRounding / d10));
}

void CheckPublished(const Soil& soil, const std::vector<double>& diameters) {
    const auto& [d10, d30, d60] = soil.diameters;
    if (d10 > 0.0) {
        for (std::size_t i = 0; i < soil.steps.size(); ++i) {
            const double published = soil.diameters[i];
            EXPECT_NEAR(soil.steps[i].OverSize(kLevels[i].second), published, 2e-4 * published);
        }
        CheckCoefficient(Uniformity(diameters), d60 / d10, d10);
        CheckCoefficient(Curvature(diameters), d30 * d30 / (d10 * d60), d10);
    }
    if (soil.uniformity) {
        CheckCoefficient(Uniformity(diameters), *soil.uniformity, diameters[kD10]);
    }
}

void CheckSoil(const Soil& soil, const GrainSizeRecord& record) {
    const auto finer = lab::PercentFinerOf(record);
    std::map<double, double> passing(finer.begin(), finer.end());
    const std::vector<double> diameters = ShapeOf(record, ChartKind::result)->diameters;
    for (std::size_t i = 0; i < soil.steps.size(); ++i) {
        const Step& step = soil.steps[i];
        EXPECT_NEAR(passing[step.fine], step.below, 1e-9) << step.fine;
        EXPECT_NEAR(passing[step.coarse], step.above, 1e-9) << step.coarse;
        CheckDiameter(soil, step, kLevels[i].second, diameters[kLevels[i].first]);
    }
    if (soil.finerThan63) {  // beside whole percentages it has a decimal more than they
        EXPECT_NEAR(passing[0.063], *soil.finerThan63, soil.uniformity ? 0.5 : 1e-9);
    }
    CheckPublished(soil, diameters);
    const lab::SoilShares shares = lab::SoilSharesOf(record);
    std::string text;
    for (const auto& share : {shares.gravel, shares.sand, shares.silt, shares.clay}) {
        text += (share ? lab::ShortestText(*share) : "-") + " ";
    }
    EXPECT_EQ(text, soil.shares);
}

/// Reads the table and checks its soils.
void CheckSource(const char* name, std::optional<lab::ValueKind> as, std::span<const Soil> soils) {
    lab::TableOptions options;
    options.as = as;
    lab::Findings findings;
    lab::TableFile file{std::string(GRDX_TABLES "/") + name, {}};
    std::string error;
    ASSERT_TRUE(win32::ReadFileWhole(file.name, file.bytes, error)) << error;
    const auto samples = lab::ReadSamples({file}, options, findings);
    findings.ThrowIfRefused();
    for (const Soil& soil : soils) {
        SCOPED_TRACE(soil.name);
        const auto sample = std::find_if(samples.begin(), samples.end(), [&](const auto& s) {
            return s.borehole + " " + s.sample == soil.name;
        });
        ASSERT_NE(sample, samples.end());
        CheckSoil(soil, *lab::RecordOf(*sample));
    }
}

TEST(PublishedSoils, AgreeWithWhatWasPublishedAndByHand) {
    CheckSource("published-soils.csv", lab::ValueKind::kPassing, kNorwegian);
    CheckSource("published-british-soils.csv", lab::ValueKind::kPassing, kBritish);
    CheckSource("published-dutch-soils.csv", std::nullopt, kDutch);
}
}  // namespace
