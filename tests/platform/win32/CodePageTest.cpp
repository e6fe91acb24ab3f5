#include "platform/win32/code_page.h"

#include <gtest/gtest.h>

#include "platform/win32/gbk_case.h"
#include "platform/win32/gbk_literal.h"
#include "platform/win32/win_strings.h"

using namespace std::string_literals;

TEST(CodePage, KnownBytes) {
    EXPECT_EQ(win32::GbkFromUtf8("钻孔A1"),
              "\xD7\xEA\xBF\xD7"
              "A1");
    EXPECT_STREQ("（有*号表示已出图）"_gbk, win32::GbkFromUtf8("（有*号表示已出图）").c_str());
    EXPECT_EQ(win32::Utf8FromGbk("\xD5\x5C\x81\x7C"), "誠亅");  // second bytes are \ and |
    EXPECT_EQ(win32::Utf16FromGbk("\xBA\xCD~"), u"和~");
    EXPECT_EQ(win32::GbkFromUtf16(u"室内曲线"), win32::GbkFromUtf8("室内曲线"));
}

TEST(CodePage, EveryCharacterComesBackAsItWas) {
    int characters = 0;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0; trail <= 0xFF; ++trail) {
            const std::string pair{static_cast<char>(lead), static_cast<char>(trail)};
            const std::u16string wide = win32::Utf16FromGbk(pair);
            ASSERT_EQ(wide.size(), 1U) << lead << " " << trail;
            if (wide[0] == 0xFFFD) {
                continue;
            }
            ++characters;
            EXPECT_EQ(win32::GbkFromUtf16(wide), pair);
            EXPECT_EQ(win32::GbkFromUtf8(win32::Utf8FromGbk(pair)), pair);
        }
    }
    EXPECT_EQ(characters, 21791);
}

TEST(CodePage, BrokenTextsAreReplacedNotSwallowed) {
    const std::tuple<const char*, std::string, std::string> fromUtf8[] = {
        {"byte that follows nothing", "a\x80z", "a?z"},
        {"sequence cut by a letter", "a\xE9\x92z", "a?z"},
        {"sequence cut by the end", "a\xE9\x92", "a?"},
        {"longer than needed", "a\xC0\xAFz", "a??z"},
        {"half a surrogate pair", "a\xED\xA0\x80z", "a???z"},
        {"above the last character", "a\xF4\x90\x80\x80z", "a????z"},
        {"byte that begins nothing", "a\xFFz", "a?z"},
        {"character outside GBK", "a😀é€z", "a?\xA8\xA6?z"},
    };
    for (const auto& [reason, utf8, gbk] : fromUtf8) {
        EXPECT_EQ(win32::GbkFromUtf8(utf8), gbk) << reason;
        std::string kept = "kept";
        EXPECT_FALSE(win32::TryGbkFromUtf8(utf8, kept)) << reason;
        EXPECT_EQ(kept, "kept") << reason;
    }

    EXPECT_EQ(win32::Utf8FromGbk("a\xFFz\x80"), "a\uFFFDz\uFFFD") << "no lead bytes";
    EXPECT_EQ(win32::Utf8FromGbk("a\xD7"), "a\uFFFD") << "half a character at the end";
    EXPECT_EQ(win32::Utf8FromGbk("\xD7 z"), "\uFFFDz") << "a lead byte takes any byte along";
    EXPECT_EQ(win32::GbkFromUtf16(u"a\xD83D\xDE00z\xDE00"), "a?z?");
    EXPECT_EQ(win32::Utf8FromUtf16(u"a\xD83D\xDE00\xD83D"), "a😀\uFFFD");
    EXPECT_EQ(win32::Utf16FromUtf8("😀\xFF"), u"\xD83D\xDE00\xFFFD");
}

TEST(CodePage, SearchGoesByWholeCharacters) {
    const std::string text = "\xD5\x5C\\a\xD5\x5C";
    EXPECT_EQ(win32::FindChar(text, '\\'), 2U);
    EXPECT_EQ(win32::FindLastChar(text, '\\'), 2U);
    EXPECT_EQ(win32::FindChar(text, '\\', 3), std::string::npos);
    EXPECT_EQ(win32::FindLastChar("\\a\\b", '\\'), 2U);
    EXPECT_EQ(win32::FindChar("ab\xD5", '\xD5'), std::string::npos);
}

TEST(GbkText, CaseIsFoldedByWholeCharacters) {
    EXPECT_TRUE(win32::EqualNoCase("ZK1a", "zk1A"));
    EXPECT_TRUE(win32::EqualNoCase("ＺＫ"_gbk, "ｚｋ"_gbk));
    EXPECT_TRUE(win32::EqualNoCase("ΩЯⅢ"_gbk, "ωяⅲ"_gbk));
    EXPECT_EQ(win32::FoldCase("Ⅺ"_gbk), "Ⅺ"_gbk) << "there is no small one";
    EXPECT_FALSE(win32::EqualNoCase("\x81\x41", "\x81\x61")) << "second bytes A and a";
    EXPECT_LT(win32::CompareNoCase("b", "C"), 0);
    EXPECT_GT(win32::CompareNoCase("\x81\x41", "zz"), 0) << "double-byte after single-byte";
}

TEST(GbkText, PrefixEndsAtAWholeCharacter) {
    const std::string text =
        "a\xD7\xEA"
        "b";
    EXPECT_EQ(win32::WholePrefix(text, 4), text);
    EXPECT_EQ(win32::WholePrefix(text, 3), "a\xD7\xEA");
    EXPECT_EQ(win32::WholePrefix(text, 2), "a");
    EXPECT_EQ(win32::WholePrefix(text, 0), "");
}

TEST(WinStrings, ConversionCountsAndRefusals) {
    const char* text = "钻孔"_gbk;
    WCHAR wide[8] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, text, -1, wide, 0), 3) << "asks for the size";
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, text, lstrlenA(text) + 1, wide, 3), 3);
    EXPECT_STREQ(win32::Utf8FromUtf16(wide).c_str(), "钻孔");
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, text, -1, wide, 2), 0) << "too small";
    EXPECT_EQ(MultiByteToWideChar(1252, 0, text, -1, wide, 8), 0) << "another code page";

    char bytes[8] = {};
    BOOL replaced = FALSE;
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"孔😀", -1, bytes, 8, "*", &replaced), 4);
    EXPECT_EQ(bytes, "\xBF\xD7*"s);
    EXPECT_TRUE(replaced);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"孔a", 1, bytes, 8, nullptr, &replaced), 2);
    EXPECT_FALSE(replaced);
}
