#include "platform/mfc/CString.h"

#include <gtest/gtest.h>

#include "platform/mfc/CTime.h"
#include "platform/win32/clock.h"
#include "platform/win32/gbk_literal.h"

TEST(CString, SearchesAndTrimsByWholeCharacters) {
    // The second bytes of these characters are \, |, ~ and @.
    const CString text = "誠\\亅|亊~和丂@"_gbk;
    EXPECT_EQ(text.Find('\\'), 2);
    EXPECT_EQ(text.Find('|'), 5);
    EXPECT_EQ(text.ReverseFind('~'), 8);
    EXPECT_EQ(text.Find('@'), 13);
    EXPECT_EQ(text.Find('\\', 3), -1);
    EXPECT_EQ(text.Find("和"_gbk), 9);
    EXPECT_EQ(text.Find("\\\x81"), 2) << "a part that is cut through a character is still bytes";
    EXPECT_EQ(CString("\xB0\xA1\xB0\xA2").Find("\xA1\xB0"), -1) << "across two characters";
    EXPECT_EQ(text.Find(""), 0);
    EXPECT_EQ(text.Find("", 99), text.GetLength());

    CString names = "试样ZK3-1~ZK3-2亊~"_gbk;
    EXPECT_EQ(names.Replace("~", "和"_gbk), 2);
    EXPECT_STREQ(names, "试样ZK3-1和ZK3-2亊和"_gbk);
    EXPECT_EQ(names.Replace("试样"_gbk, "KF"), 1);
    EXPECT_STREQ(names, "KFZK3-1和ZK3-2亊和"_gbk);
    EXPECT_EQ(names.Replace("", "x"), 0);

    names = nullptr;
    names += nullptr;
    EXPECT_TRUE(names.IsEmpty());
}

TEST(CString, PartsOutsideTheTextEndWithIt) {
    const CString text = "KFZK3-5.dwg";
    EXPECT_STREQ(text.Left(text.GetLength() - 4).Mid(2), "ZK3-5");
    EXPECT_STREQ(text.Right(4), ".dwg");
    EXPECT_STREQ(text.Right(99), text);
    EXPECT_STREQ(text.Left(-1), "");
    EXPECT_STREQ(text.Mid(99), "");
    EXPECT_STREQ(text.Mid(8, 99), "dwg");
}

TEST(CString, FormatsAndBuffers) {
    CString text;
    const std::string longText(5000, 'x');
    text.Format("%d|%s|%.3f", 7, longText.c_str(), 0.00125);
    EXPECT_EQ(text.GetLength(), 2 + 5000 + 6);
    text.Format("%s%s", static_cast<const char*>(text.Left(2)), "工程编号: "_gbk);
    EXPECT_STREQ(text, "7|工程编号: "_gbk);

    text = "written";
    text += text;
    EXPECT_STREQ(text, "writtenwritten");
    text = static_cast<const char*>(text) + 7;
    EXPECT_STREQ(text, "written");
}

TEST(CTime, FormatsGbkPatternsExactly) {
    const CTime time(2024, 3, 7, 9, 5, 2);
    EXPECT_STREQ(time.Format("%Y年%m月%d日"_gbk), "2024年03月07日"_gbk);
    EXPECT_STREQ(time.Format("%Y.%m.%d %H:%M:%S 100%% 誠\\"_gbk),
                 "2024.03.07 09:05:02 100% 誠\\"_gbk);
    EXPECT_STREQ(time.Format("%p|%"), time.GetHour() < 12 ? "AM|%" : "PM|%");
    EXPECT_EQ(CTime(2024, 2, 30, 0, 0, 0).GetMonth(), 3) << "carried over";
}

TEST(CTime, TheCurrentTimeIsTheClocks) {
    win32::SetClock([] { return CTime(1999, 12, 31, 23, 59, 59).GetTime(); });
    const CTime now = CTime::GetCurrentTime();
    win32::SetClock({});
    EXPECT_EQ(now.GetYear(), 1999);
    EXPECT_EQ(now.GetDay(), 31);
    EXPECT_LT(now, CTime::GetCurrentTime());
}
