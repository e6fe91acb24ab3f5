#include "platform/win32/private_profile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "platform/win32/code_page.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {

class PrivateProfile : public testing::Test {
protected:
    /// `content` is UTF-8.
    void Write(const std::string& content) { scratch_.Write("p.ini", win32::GbkFromUtf8(content)); }
    std::string Content() const { return win32::Utf8FromGbk(scratch_.Read("p.ini")); }
    std::string Get(const std::string& section, const std::string& key, DWORD size = 250) const {
        std::string buffer(size, '#');
        const DWORD length = GetPrivateProfileString(win32::GbkFromUtf8(section).c_str(),
                                                     win32::GbkFromUtf8(key).c_str(), "default",
                                                     buffer.data(), size, file_.c_str());
        EXPECT_EQ(length, std::char_traits<char>::length(buffer.c_str()));
        return win32::Utf8FromGbk(buffer.c_str());
    }
    BOOL Set(const std::string& section, const char* key, const char* value) const {
        return WritePrivateProfileString(section.c_str(), key, value, file_.c_str());
    }

    ScratchFolder scratch_;
    std::string file_ = scratch_.Windows("P.INI");
};

}  // namespace

TEST_F(PrivateProfile, ReadsByTheRules) {
    Write(
        "outside=1\r\n"
        "; [Project]\r\n"
        "  [ Project ] comment\r\n"
        "  GCBH  = 2024-7 ; not a comment \t\r\n"
        ";GCMC=commented\n"
        "quoted=\"  二 \"\r\n"
        "single='it''s'\r\n"
        "half=\"open\r\n"
        "lone=\"\r\n"
        "empty=\r\n"
        "noequals\r\n"
        "equals=a=b\r\n"
        "twice=first\r\n"
        "TWICE=second\r\n"
        "誠]=trail\r\n"
        "丄=upper\r\n"
        "乤=lower\r\n"
        "[乚]]\r\n"
        "key=bracket\r\n"
        "[project]\r\n"
        "late=never\r\n"
        "[Last]\r\n"
        "end=no line break");
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"blanks around names and value", "Project", "GCBH", "2024-7 ; not a comment"},
        {"without regard to case", "PROJECT", "gcbh", "2024-7 ; not a comment"},
        {"before the first section", "Project", "outside", "default"},
        {"commented out", "Project", "GCMC", "default"},
        {"blanks within quotes stay", "Project", "quoted", "  二 "},
        {"one pair of quotes", "Project", "single", "it''s"},
        {"no pair", "Project", "half", "\"open"},
        {"one quote is no pair", "Project", "lone", "\""},
        {"empty is not missing", "Project", "empty", ""},
        {"no equals sign", "Project", "noequals", "default"},
        {"the first equals sign", "Project", "equals", "a=b"},
        {"the first of two keys", "Project", "Twice", "first"},
        {"bracket after a character", "Project", "誠]", "trail"},
        {"second bytes A and a differ", "Project", "乤", "lower"},
        {"second byte ] does not end a section", "乚", "key", "bracket"},
        {"the first of two sections", "Project", "late", "default"},
        {"last line", "last", "end", "no line break"},
        {"no such section", "Other", "end", "default"},
    };
    for (const auto& [reason, section, key, value] : rows) {
        EXPECT_EQ(Get(section, key), value) << reason;
    }
}

TEST_F(PrivateProfile, CutsAtAWholeCharacter) {
    Write("[S]\nunit=ab勘察院\n");
    EXPECT_EQ(Get("S", "unit", 9), "ab勘察院");
    EXPECT_EQ(Get("S", "unit", 8), "ab勘察") << "the third character does not fit whole";
    EXPECT_EQ(Get("S", "unit", 7), "ab勘察");
    EXPECT_EQ(Get("S", "unit", 1), "");
    char untouched = '#';
    EXPECT_EQ(GetPrivateProfileString("S", "unit", "", &untouched, 0, file_.c_str()), 0U);
    EXPECT_EQ(untouched, '#');
}

TEST_F(PrivateProfile, DefaultsForWhatIsMissing) {
    char buffer[16];
    EXPECT_EQ(GetPrivateProfileString("S", "k", " two  ", buffer, 16, file_.c_str()), 4U);
    EXPECT_STREQ(buffer, " two") << "no file; blanks at the default's end go";
    EXPECT_EQ(GetPrivateProfileString("S", "k", nullptr, buffer, 16, file_.c_str()), 0U);
    EXPECT_EQ(GetPrivateProfileInt("S", "k", -1, file_.c_str()), static_cast<UINT>(-1));
}

TEST_F(PrivateProfile, Integers) {
    const std::pair<const char*, int> rows[] = {
        {"12", 12},     {"-12", -12}, {"+3", 3},     {"7abc", 7},
        {"abc", 0},     {"", 55},     {"\" 8\"", 0}, {"0x1F", 31},
        {"0b101", 5},   {"0o17", 15}, {"017", 17},   {"4294967297", 1},
        {"-0x10", -16}, {"1 2", 1},   {"-", 0},      {"2147483648", INT32_MIN},
    };
    for (const auto& [text, value] : rows) {
        Write(std::string("[S]\nk=") + text + "\n");
        EXPECT_EQ(static_cast<int>(GetPrivateProfileInt("s", "K", 55, file_.c_str())), value)
            << text;
    }
}

TEST_F(PrivateProfile, WritingChangesOneLineOnly) {
    const std::string before =
        "; 项目\n\n[CKFDlg]\n bWCDW = 1 \n\xFF;half\nsWCDW=旧\n\n[MDI]\r\nMDIMODE=1";
    const struct {
        const char* reason;
        const char* section;
        const char* key;
        const char* value;
        std::string part;   ///< of the text before
        std::string after;  ///< what stands in its place
    } rows[] = {
        {"change, the key as it stands", "ckfdlg", "BWCDW", "0", " bWCDW = 1 \n", " bWCDW =0\n"},
        {"add after the section's last line", "CKFDlg", "bRQ", "1", "旧\n", "旧\nbRQ=1\n"},
        {"add where the line break is missing", "MDI", "a", "b", "E=1", "E=1\na=b\n"},
        {"add a section", "New", "a", "", "E=1", "E=1\n[New]\na=\n"},
        {"delete a key", "CKFDlg", "sWCDW", nullptr, "sWCDW=旧\n", ""},
        {"delete a section", "CKFDlg", nullptr, nullptr,
         before.substr(before.find("[CKF"), before.find("[MDI") - before.find("[CKF")), ""},
        {"delete what is not there", "None", "a", nullptr, "", ""},
    };
    const auto gbk = [](const std::string& text) {
        const std::size_t stray = text.find('\xFF');  // this byte stays as it is
        return stray == std::string::npos ? win32::GbkFromUtf8(text)
                                          : win32::GbkFromUtf8(text.substr(0, stray)) + '\xFF' +
                                                win32::GbkFromUtf8(text.substr(stray + 1));
    };
    for (const auto& row : rows) {
        scratch_.Write("p.ini", gbk(before));
        EXPECT_TRUE(Set(row.section, row.key, row.value)) << row.reason;
        std::string after = before;
        after.replace(after.find(row.part), row.part.size(), row.after);
        EXPECT_EQ(scratch_.Read("p.ini"), gbk(after)) << row.reason;
    }
}

TEST_F(PrivateProfile, MakesWhatIsMissingAndReadsItBack) {
    EXPECT_TRUE(Set("CKFDlg", "KFQX2024", "1-2@1-10"));
    EXPECT_EQ(scratch_.Read("P.INI"), "[CKFDlg]\r\nKFQX2024=1-2@1-10\r\n");
    EXPECT_TRUE(Set("CKFDlg", "sWCDW", "\"甲\"院"_gbk));
    EXPECT_EQ(Get("CKFDlg", "sWCDW"), "\"甲\"院");
    EXPECT_FALSE(WritePrivateProfileString("S", "k", "v", scratch_.Windows("none\\p.ini").c_str()));
}

TEST_F(PrivateProfile, RefusesTextsThatWouldNotBeFoundAgain) {
    Write("[S]\nk=v\n");
    EXPECT_FALSE(Set("S", "a=b", "v"));
    EXPECT_FALSE(Set("S", ";a", "v"));
    EXPECT_FALSE(Set("S", "[a", "v"));
    EXPECT_FALSE(Set("S]", "a", "v"));
    EXPECT_FALSE(Set("S", "a", "v\n[T]"));
    EXPECT_EQ(Content(), "[S]\nk=v\n");
    EXPECT_TRUE(Set("S", "乚"_gbk, "v")) << "its second byte is ]";
    EXPECT_EQ(Get("S", "乚"), "v");
}

TEST_F(PrivateProfile, ProcessesThatWriteAtOnceLoseNothingAlsoAfterOneWasKilled) {
    constexpr int kWriters = 4;
    constexpr int kKeys = 25;
    Write("[S]\n");
    if (fork() == 0) {
        const win32::FileLock lock(scratch_.Path("p.ini"));
        raise(SIGKILL);
    }
    wait(nullptr);
    EXPECT_EQ(scratch_.Names().size(), 2U) << "the killed one's";
    for (int writer = 0; writer < kWriters; ++writer) {
        if (fork() == 0) {
            for (int key = 0; key < kKeys; ++key) {
                Set("S", (std::to_string(writer) + "-" + std::to_string(key)).c_str(), "v");
            }
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    const std::string content = Content();
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 1 + kWriters * kKeys) << content;
    EXPECT_EQ(scratch_.Names(), std::vector<std::string>{"p.ini"}) << "no lock is left";
}
