#include "platform/win32/find_file.h"

#include <gtest/gtest.h>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {

/// Names (UTF-8) that a search finds, joined by blanks.
std::string Find(const std::string& pattern) {
    std::string names;
    WIN32_FIND_DATA data{};
    const HANDLE search = FindFirstFile(pattern.c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) {
        return "nothing";
    }
    do {
        names += (names.empty() ? "" : " ") + win32::Utf8FromGbk(data.cFileName);
    } while (FindNextFile(search, &data) != FALSE);
    EXPECT_TRUE(FindClose(search));
    return names;
}

}  // namespace

TEST(FindFile, PatternsGoByWholeCharactersWithoutRegardToCase) {
    const ScratchFolder scratch;
    for (const char* name :
         {"KFZK3-10.dwg", "KFZK3-2.DWG", "kfzk3-1~ZK3-2.dwg", "KFZK30-1.dwg", "KFSJ2-1.dwg",
          "KF誠-1.dwg", "KF亅-1.dwg", "Notes", "KFZK3-3.dwg.bak", "KF😀.dwg"}) {
        scratch.Write(name, "");
    }
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"sheets of a borehole, by name without regard to case", "KFZK3*.dwg",
         "KFZK3-10.dwg kfzk3-1~ZK3-2.dwg KFZK3-2.DWG KFZK30-1.dwg"},
        {"a star for nothing", "KFSJ*2-1.dwg", "KFSJ2-1.dwg"},
        {"a question mark is one character of two bytes", "KF?-1.dwg", "KF亅-1.dwg KF誠-1.dwg"},
        {"two question marks are not",
         "KF?"
         "?-1.dwg",
         "nothing"},
        {"second bytes are no letters or separators", "kf誠*", "KF誠-1.dwg"},
        {"a star that must give back", "*3*2.dwg", "kfzk3-1~ZK3-2.dwg KFZK3-2.DWG"},
        {"all names, also those without a dot", "N*.*", "nothing"},
        {"a plain name", "notes", "Notes"},
    };
    for (const auto& [reason, pattern, found] : rows) {
        EXPECT_EQ(Find(scratch.Windows(win32::GbkFromUtf8(pattern))), found) << reason;
    }
    EXPECT_NE(Find(scratch.Windows("*.*")).find("Notes"), std::string::npos);
    EXPECT_EQ(Find(scratch.Windows("none\\*")), "nothing");
}

TEST(FindFile, EntriesAreThoseOfTheStart) {
    const ScratchFolder scratch;
    scratch.Write("1.dwg", "12345");
    scratch.MakeFolder("2.dwg");
    WIN32_FIND_DATA data{};
    const HANDLE search = FindFirstFile(scratch.Windows("*.dwg").c_str(), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.nFileSizeLow, 5U);
    EXPECT_EQ(data.dwFileAttributes, FILE_ATTRIBUTE_NORMAL);
    scratch.Write("3.dwg", "");
    ASSERT_TRUE(FindNextFile(search, &data));
    EXPECT_STREQ(data.cFileName, "2.dwg");
    EXPECT_EQ(data.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(FindNextFile(search, &data));
    EXPECT_STREQ(data.cFileName, "2.dwg");
    EXPECT_TRUE(FindClose(search));
    EXPECT_FALSE(FindClose(search)) << "closed already";
    EXPECT_FALSE(FindNextFile(search, &data));
}
