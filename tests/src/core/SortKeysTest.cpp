#include "src/core/sort_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

/// Sorts the keys, each with its own number as string, and checks order and company.
void ExpectSorted(const std::vector<int>& keys) {
    const int count = static_cast<int>(keys.size());
    std::vector<int> sorted{4711};  // index 0 is none of the sort's business
    sorted.insert(sorted.end(), keys.begin(), keys.end());
    std::vector<std::string> strings{"outside"};
    for (int key : keys) {
        strings.push_back("key of some length " + std::to_string(key));
    }
    SortKeysWithStrings(count, sorted.data(), strings.data());

    std::vector<int> expected = keys;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(sorted[0], 4711);
    EXPECT_EQ(strings[0], "outside");
    ASSERT_EQ(std::vector<int>(sorted.begin() + 1, sorted.end()), expected);
    for (int i = 1; i <= count; ++i) {
        ASSERT_EQ(strings[static_cast<std::size_t>(i)],
                  "key of some length " + std::to_string(sorted[static_cast<std::size_t>(i)]));
    }
}

TEST(SortKeysWithStrings, AgreesWithStdSort) {
    std::mt19937 random(7);
    for (int count : {0, 1, 2, 6, 7, 8, 9, 15, 100, 5000}) {
        for (int range : {1, 5, 1'000'000'000}) {
            std::uniform_int_distribution<int> key(-range, range);
            std::vector<int> keys(static_cast<std::size_t>(count));
            std::generate(keys.begin(), keys.end(), [&] { return key(random); });
            ExpectSorted(keys);
        }
    }
}

TEST(SortKeysWithStrings, TakesOrderedAndTurnedData) {
    std::vector<int> keys(3000);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        keys[i] = static_cast<int>(i);
    }
    ExpectSorted(keys);
    std::reverse(keys.begin(), keys.end());
    ExpectSorted(keys);
    std::fill(keys.begin(), keys.end(), 3);
    ExpectSorted(keys);
}

}  // namespace
