#include "lab/tables/text_coding.h"

#include <gtest/gtest.h>

#include "lab/numbers.h"
#include "platform/win32/code_page.h"

TEST(TextCodingTest, TellsUtf8FromGbk) {
    constexpr const char* kRefused = nullptr;
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"plain", "a,b", "a,b"},
        {"UTF-8", "钻孔", "钻孔"},
        {"UTF-8 with mark", "\xEF\xBB\xBF钻孔", "钻孔"},
        {"GBK", win32::GbkFromUtf8("钻孔"), "钻孔"},
        {"GBK with a trail byte below 0x80", win32::GbkFromUtf8("一丂"), "一丂"},
        {"a mark and then GBK", "\xEF\xBB\xBF" + win32::GbkFromUtf8("钻孔"), kRefused},
        {"a mark and then a long form of '/'", "\xEF\xBB\xBF\xC0\xAF", kRefused},
        {"a mark and then a surrogate", "\xEF\xBB\xBF\xED\xA0\x80", kRefused},
        {"a mark and then half a character", "\xEF\xBB\xBF\xE9\x92", kRefused},
        {"a lead byte alone", "a\xFE", kRefused},
        {"UTF-16 without a mark", std::string("a\0b\0", 4), kRefused},
        {"UTF-16 with half a pair", "\xFF\xFE\x01\xD8", kRefused},
    };
    for (const auto& [why, bytes, expected] : cases) {
        std::string utf8;
        std::string error;
        EXPECT_EQ(lab::DecodeText(bytes, utf8, error), expected != kRefused) << why;
        EXPECT_EQ(utf8, expected != kRefused ? expected : "") << why;
        EXPECT_EQ(error.empty(), expected != kRefused) << why;
    }
}

TEST(NumbersTest, AreStoredAsTheShortestDecimalOfAFloat) {
    EXPECT_EQ(lab::StoredNumber(161.6), 161.6);
    EXPECT_EQ(lab::StoredNumber(0.00125), 0.00125);
    EXPECT_EQ(lab::StoredNumber(52340.5), 52340.5);
    EXPECT_EQ(lab::StoredNumber(123456.789), 123456.79);
    EXPECT_EQ(lab::StoredNumber(1e39), std::nullopt);
    EXPECT_EQ(lab::StoredNumber(1e-60), std::nullopt);
}

TEST(NumbersTest, KnowTheCalendar) {
    for (const char* day : {"2026-05-20", "2024-02-29", "0001-12-31"}) {
        EXPECT_TRUE(lab::IsDate(day)) << day;
    }
    for (const char* text : {"2026-02-29", "2026-5-20", "2026-13-01", "2026-00-01", "2026-01-00",
                             "20260520", "2026/05/20", "2026-05-2x", "-026-05-20", ""}) {
        EXPECT_FALSE(lab::IsDate(text)) << text;
    }
}
