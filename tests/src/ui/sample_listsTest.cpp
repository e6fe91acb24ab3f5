#include "src/ui/sample_lists.h"

#include <climits>

#include "tests/src/ui/ProjectFixture.h"

namespace {

TEST(SampleSortKeyTest, TakesTheLastNumberAndTheOneBeforeTheCharacterInFrontOfIt) {
    const std::tuple<const char*, int, const char*> rows[] = {
        {"12", 12, "a number alone"},
        {"3-12", 30012, "two numbers"},
        {"2-1-5", 10005, "the last two of three"},
        {"A1", 1, "no number before the letter"},
        {"4A-1", 1, "two characters between the numbers"},
        {"3号7", 30007, "a double-byte character between the numbers"},
        {"3丂7", 30007, "one with the trail byte of '@'"},
        {"99999999999", INT_MAX, "a number larger than a key"},
        {"300000-1", INT_MAX, "a product larger than a key"},
    };
    for (const auto& [sample, key, reason] : rows) {
        EXPECT_EQ(SampleSortKey(win32::GbkFromUtf8(sample)), key) << reason;
    }
}

}  // namespace
