// What comes out of a project: shares by hand calculation, and tables that come in again as they
// went out, for many samples by chance.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "lab/numbers.h"
#include "lab/results/ags_text.h"
#include "lab/results/result_tables.h"
#include "lab/results/soil_shares.h"
#include "lab/results/table_texts.h"
#include "lab/sample_record.h"
#include "lab/tables/table_files.h"

namespace {

using Items = std::vector<std::pair<double, double>>;

lab::Sample SampleOf(const Items& items, double total) {
    lab::Sample sample{"ZK1", "1", 1.5, 0.2, "筛析法", total, {}};
    for (const auto& [size, mass] : items) {
        sample.items.push_back({size, mass});
    }
    return sample;
}

std::string SharesText(const lab::Sample& sample) {
    const lab::SoilShares shares = lab::SoilSharesOf(*lab::RecordOf(sample));
    std::string text;
    for (const auto& share : {shares.gravel, shares.sand, shares.silt, shares.clay}) {
        text += (share ? lab::ShortestText(*share) : "-") + " ";
    }
    return text;
}

TEST(SoilShares, AreReadAtTheBoundsOfTheClasses) {
    const std::tuple<const char*, Items, const char*> cases[] = {
        {"sieves at all bounds", {{2, 20}, {0.075, 30}, {0.005, 40}, {0, 10}}, "20 30 40 10 "},
        {"2 mm is half way from 4 to 1 mm in the logarithm, 0.02 half way from 0.04 to 0.01",
         {{4, 10}, {1, 40}, {0.075, 20}, {0.01, 10}, {0.0025, 10}, {0, 10}},
         "30 40 15 15 "},
        {"thirds, the first of the largest takes the rest",
         {{2, 100.0 / 3}, {0.075, 100.0 / 3}, {0.005, 100.0 / 3 - 0.1}, {0, 0.1}},
         "33.4 33.3 33.2 0.1 "},
        {"nothing below 0.075 mm", {{2, 20}, {0.075, 70}, {0, 10}}, "20 70 - - "},
        {"not down to 0.005 mm", {{2, 20}, {0.075, 70}, {0.05, 5}, {0, 5}}, "20 70 - - "},
        {"nothing left to be finer", {{2, 20}, {0.075, 70}, {0.05, 10}}, "20 70 10 0 "},
        {"not down to 0.075 mm", {{2, 20}, {0.5, 70}, {0, 10}}, "20 - - - "},
        {"all gravel", {{20, 60}, {5, 40}}, "100 0 - - "},
        {"not down to 2 mm", {{20, 60}, {5, 30}, {0, 10}}, "- - - - "},
        {"coarsest sieve within the sand", {{0.5, 10}, {0.075, 80}, {0, 10}}, "0 90 - - "},
        {"a size twice", {{2, 5}, {2, 15}, {0.075, 70}, {0, 10}}, "20 70 - - "},
    };
    for (const auto& [why, items, shares] : cases) {
        EXPECT_EQ(SharesText(SampleOf(items, 100)), shares) << why;
    }
}

/// Samples by chance, as the database keeps them: sound ones, whose masses may be short of the
/// total.
class RandomSamples {
public:
    explicit RandomSamples(unsigned seed) : random_(seed) {}

    lab::ProjectData Project(int count) {
        lab::ProjectData data;
        data.project.profile = {"2026-1", "江堤", 0, true};
        for (int i = 0; i < count; ++i) {
            data.samples.push_back({{Sample(i), true, true, {}}, {}, false});
        }
        return data;
    }

private:
    lab::Sample Sample(int number) {
        static const char* const kMethods[] = {"", "筛析法", "a, \"b\"", "sieve; 2 mm", "-1.50"};
        lab::Sample sample{"B" + std::to_string(number / 100),
                           "S " + std::to_string(number % 100),
                           {},
                           {},
                           kMethods[random_() % 5],
                           {},
                           {}};
        if (random_() % 4 != 0) {
            sample.depth = Number(99);
            sample.thickness = Number(3);
        }
        double mass = 0.0;
        for (double size = Number(200) + 0.01; size > 0.0008 && sample.items.size() < 20;
             size /= 1.2 + Number(3)) {
            sample.items.push_back({lab::StoredNumber(size), Number(500)});
            mass += *sample.items.back().mass;
        }
        if (random_() % 2 != 0) {
            sample.items.push_back({0.0, Number(100)});
            mass += *sample.items.back().mass;
        }
        sample.total = lab::StoredNumber(mass * (1.0 + Number(1)) + 0.01);
        return sample;
    }
    double Number(double limit) {
        return *lab::StoredNumber(std::uniform_real_distribution<>(0.0, limit)(random_));
    }

    std::mt19937 random_;
};

std::vector<lab::Sample> ReadBack(const std::string& bytes) {
    lab::Findings findings;
    auto samples = lab::ReadSamples({{"f", bytes}}, {}, findings);
    findings.ThrowIfRefused();
    return samples;
}

TEST(ResultTables, ComeInAgainAsTheyWentOut) {
    const lab::ProjectData data = RandomSamples(1).Project(10000);
    std::vector<lab::Sample> samples;
    for (const lab::ProjectSample& sample : data.samples) {
        samples.push_back(sample.stored.data);
        const lab::SoilShares shares = lab::SoilSharesOf(*lab::RecordOf(samples.back()));
        if (shares.clay) {
            EXPECT_NEAR(*shares.gravel + *shares.sand + *shares.silt + *shares.clay, 100, 1e-9);
        }
    }
    const lab::ResultTable items = lab::ItemsOf(data);
    EXPECT_TRUE(ReadBack(lab::TableAsCsv(items)) == samples);
    EXPECT_TRUE(ReadBack(lab::TableAsWorkbook(items)) == samples);
}

/// Percent finer at the measured sizes.
std::vector<std::pair<double, double>> Finer(const lab::Sample& sample) {
    return lab::PercentFinerOf(*lab::RecordOf(sample));
}

TEST(AgsText, ComesInAgainRounded) {
    const lab::ProjectData data = RandomSamples(2).Project(1000);
    const std::vector<lab::Sample> read = ReadBack(lab::ProjectAsAgs(data, "2026-05-20").text);
    ASSERT_EQ(read.size(), data.samples.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        const lab::Sample& written = data.samples[i].stored.data;
        EXPECT_EQ(read[i].borehole + read[i].sample + read[i].method,
                  written.borehole + written.sample + written.method);
        EXPECT_EQ(read[i].total, written.total);
        EXPECT_EQ(read[i].depth.has_value(), written.depth.has_value());
        EXPECT_NEAR(read[i].depth.value_or(0), written.depth.value_or(0), 0.00501);
        EXPECT_NEAR(read[i].thickness.value_or(0), written.thickness.value_or(0), 0.0101);
        ASSERT_TRUE(lab::RecordOf(read[i])) << lab::TableAsCsv(
            lab::ItemsOf({{}, {{{read[i], true, true, {}}, {}, false, {}}}, {}, {}}));
        const auto before = Finer(written);
        const auto after = Finer(read[i]);
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t k = 0; k < after.size(); ++k) {
            EXPECT_NEAR(after[k].first / before[k].first, 1.0, 0.00501);
            EXPECT_NEAR(after[k].second, before[k].second, 0.501);
        }
    }
}

}  // namespace
