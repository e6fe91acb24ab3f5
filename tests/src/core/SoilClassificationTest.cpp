#include "src/core/soil_classification.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/win32/code_page.h"

namespace {

std::string ClassOf(std::vector<double> sizes, const std::vector<double>& shares, int standardCode,
                    double total = 1.0) {
    GrainSizeRecord record;
    record.kind = total == 1.0 ? RecordKind::layer : RecordKind::sample;
    record.sizes = std::move(sizes);
    for (double share : shares) {
        record.amounts.push_back(share * total);
    }
    record.totalMass = total;
    return win32::Utf8FromGbk(ClassifySoil(record, standardCode));
}

TEST(SoilClassification, TakesTheFirstRuleThatHolds) {
    using Numbers = std::vector<double>;
    const std::tuple<const char*, Numbers, Numbers, int, const char*> cases[] = {
        {"mostly above 200 mm", {400, 0.075}, {0.6, 0.4}, 0, "漂石,块石"},
        {"a sieve of 200 mm counts", {200}, {0.51}, 0, "漂石,块石"},
        {"mostly above 20 mm", {200, 20}, {0.5, 0.1}, 0, "卵石,碎石"},
        {"mostly above 2 mm", {20, 2}, {0.4, 0.2}, 0, "圆砾,角砾"},
        {"just half above 2 mm", {20, 2}, {0.25, 0.25}, 0, "砾砂"},
        {"a quarter above 2 mm", {2, 0.5}, {0.25, 0.6}, 0, "砾砂"},
        {"less than a quarter above 2 mm", {2, 0.5}, {0.2499, 0.6}, 0, "粗砂"},
        {"0.49 is below the bound itself", {0.49, 0.25}, {0.6, 0.1}, 0, "中砂"},
        {"mostly above 0.25 mm", {0.5, 0.25}, {0.5, 0.1}, 0, "中砂"},
        {"fine sand", {0.25, 0.075}, {0.4, 0.5}, 0, "细砂"},
        {"silty sand at 85 percent", {0.25, 0.075}, {0.25, 0.6}, 0, "粉砂"},
        {"no name at half", {0.25, 0.075}, {0.25, 0.25}, 0, ""},
        {"no name for silt", {0.075}, {0.3}, 0, ""},
        {"code 2 goes by 0.075 mm", {0.25, 0.09}, {0.4, 0.5}, 2, "细砂"},
        {"code 1: fine sand above 0.1 mm", {0.25, 0.1}, {0.4, 0.4}, 1, "细砂"},
        {"code 1: a sieve of 0.09 mm does not count", {0.25, 0.09}, {0.4, 0.5}, 1, "粉砂"},
        {"code 1: 75 percent is silty", {0.25, 0.1}, {0.25, 0.5}, 1, "粉砂"},
        {"code 1 names silt too", {0.075}, {0.3}, 1, "粉砂"},
    };
    for (const auto& [reason, sizes, shares, code, soilClass] : cases) {
        EXPECT_EQ(ClassOf(sizes, shares, code), soilClass) << reason;
        EXPECT_EQ(ClassOf(sizes, shares, code, 512.0), soilClass) << reason;
    }
}

// Masses in tenths, split at random over five sieves that are coarse enough to count, around each
// bound: the class is that of the whole numbers.
TEST(SoilClassification, MassesThatAddUpOnPaperAddUpHere) {
    const struct {
        std::vector<double> sizes;
        long long bound, of;  ///< as a fraction
        int code;
        const char* above;
        const char* notAbove;
    } cases[] = {
        {{900, 800, 600, 400, 200, 0}, 1, 2, 0, "漂石,块石", "砾砂"},
        {{100, 60, 40, 30, 20, 0}, 1, 2, 0, "卵石,碎石", "砾砂"},
        {{10, 5, 4, 3, 2, 0}, 1, 2, 0, "圆砾,角砾", "砾砂"},
        {{10, 5, 4, 3, 2, 0}, 24999, 100000, 0, "砾砂", ""},
        {{1, 0.9, 0.7, 0.6, 0.5, 0}, 1, 2, 0, "粗砂", ""},
        {{0.45, 0.4, 0.35, 0.3, 0.25, 0}, 1, 2, 0, "中砂", ""},
        {{0.2, 0.15, 0.1, 0.08, 0.075, 0}, 17, 20, 0, "细砂", "粉砂"},
        {{0.2, 0.15, 0.1, 0.08, 0.075, 0}, 1, 2, 0, "粉砂", ""},
        {{0.2, 0.18, 0.15, 0.12, 0.1, 0}, 3, 4, 1, "细砂", "粉砂"},
    };
    std::mt19937 random(20260520);
    const auto upTo = [&random](long long most) {
        return std::uniform_int_distribution<long long>(0, most)(random);
    };
    for (const auto& c : cases) {
        int wrong = 0;
        for (int round = 0; round < 20000; ++round) {
            const long long total = c.of * (1 + upTo(c.of > 1000 ? 3 : 5000)) * 2;
            const long long coarse = total * c.bound / c.of - 1 + upTo(2);
            const bool above = coarse * c.of > total * c.bound;
            std::vector<double> masses;
            long long left = coarse;
            for (int sieve = 0; sieve < 4; ++sieve) {
                const long long part = upTo(left);
                masses.push_back(static_cast<double>(part) / 10.0);
                left -= part;
            }
            masses.push_back(static_cast<double>(left) / 10.0);
            masses.push_back(static_cast<double>(total - coarse) / 10.0);
            GrainSizeRecord record;
            record.totalMass = static_cast<double>(total) / 10.0;
            record.sizes = c.sizes;
            record.amounts = masses;
            wrong +=
                win32::Utf8FromGbk(ClassifySoil(record, c.code)) != (above ? c.above : c.notAbove)
                    ? 1
                    : 0;
        }
        EXPECT_EQ(wrong, 0) << c.above << " at " << c.bound << "/" << c.of;
    }
}

}  // namespace
