#include "platform/suite/suite_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/suite/absolute_paths.h"
#include "platform/suite/agreement.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {

/// A suite.ini with one key's line changed: left out when `value` is null.
std::string Profile(const std::string& key = "", const char* value = nullptr) {
    const std::pair<const char*, const char*> lines[] = {
        {"ProjectProfile", "project.ini"},
        {"SettingsProfile", "conf\\settings.ini"},
        {"MarkProfile", "\\marks\\marks.ini"},
        {"RegisteredFolder", "."},
        {"Database", "Provider=SQLite;Data Source=project.db"},
    };
    std::string text = "[Suite]\r\n";
    for (const auto& [name, usual] : lines) {
        if (key != name) {
            text += std::string(name) + "=" + usual + "\r\n";
        } else if (value != nullptr) {
            text += std::string(name) + "=" + value + "\r\n";
        }
    }
    return text;
}

template <class Operation>
std::string Answer(Operation operation, int expected = 1) {
    char buffer[1024] = "untouched";
    if constexpr (std::is_void_v<decltype(operation(buffer))>) {
        operation(buffer);
    } else {
        EXPECT_EQ(operation(buffer), expected);
    }
    return buffer;
}

class SuiteFolder : public testing::Test {
protected:
    SuiteFolder() { setenv("XDG_CONFIG_HOME", configuration_.Path().c_str(), 1); }
    ~SuiteFolder() override { suite::CloseFolder(); }
    /// As a user does who agrees to what is outside.
    bool Open(const std::string& folder) {
        std::vector<suite::OutsidePlace> places;
        return suite::CheckFolder(folder, places, error_) &&
               suite::AgreeToFolder(folder, places, error_) && suite::OpenFolder(folder, error_);
    }
    ScratchFolder configuration_;
    ScratchFolder scratch_;
    std::string error_;
};

}  // namespace

TEST_F(SuiteFolder, OperationsAnswerFullPaths) {
    EXPECT_EQ(Answer(GetProjectProfilePath), "") << "no folder is open";
    EXPECT_EQ(Answer(GetDatabaseInitString, 0), "");
    EXPECT_EQ(Answer(GetRegisteredFolder, 0), "");

    scratch_.MakeFolder("套件");
    scratch_.Write("套件/Suite.INI", Profile());
    ASSERT_TRUE(Open(scratch_.Path("套件/"))) << error_;
    const std::string folder = scratch_.Windows(win32::GbkFromUtf8("套件"));
    EXPECT_EQ(Answer(GetProjectProfilePath), folder + "\\project.ini");
    EXPECT_EQ(Answer(GetSettingsProfilePath), folder + "\\conf\\settings.ini");
    EXPECT_EQ(Answer(GetMarkProfilePath), "\\marks\\marks.ini");
    EXPECT_EQ(Answer(GetRegisteredFolder), folder);
    EXPECT_EQ(Answer(GetDatabaseInitString),
              "Provider=SQLite;Data Source=" + folder + "\\project.db");
}

TEST_F(SuiteFolder, ARelativeFolderCountsFromTheCurrentOneAtOpening) {
    const std::filesystem::path before = std::filesystem::current_path();
    scratch_.Write("suite.ini", Profile());
    std::filesystem::current_path(scratch_.Path());
    const bool opened = Open(".");
    std::filesystem::current_path(before);
    ASSERT_TRUE(opened) << error_;
    EXPECT_EQ(Answer(GetRegisteredFolder), scratch_.Windows());
}

TEST_F(SuiteFolder, PathsFillTheirBuffersAndNoMore) {
    const std::string prefix = scratch_.Windows() + "\\";
    const std::string fits(255 - prefix.size(), 'x');
    scratch_.Write("suite.ini", Profile("ProjectProfile", fits.c_str()));
    ASSERT_TRUE(Open(scratch_.Path())) << error_;
    EXPECT_EQ(Answer(GetProjectProfilePath), prefix + fits);

    scratch_.Write("suite.ini", Profile("ProjectProfile", (fits + "x").c_str()));
    EXPECT_FALSE(suite::OpenFolder(scratch_.Path(), error_));
    EXPECT_EQ(error_.find(scratch_.Path("suite.ini") + ": ProjectProfile is longer than 255 bytes"),
              0U)
        << error_;
    EXPECT_EQ(Answer(GetProjectProfilePath), prefix + fits) << "the folder open before is kept";

    const std::string source = "Provider=MSDASQL;" + std::string(1007, 'x');
    scratch_.Write("suite.ini", Profile("Database", source.substr(0, 1023).c_str()));
    EXPECT_TRUE(Open(scratch_.Path())) << error_;
    EXPECT_EQ(Answer(GetDatabaseInitString).size(), 1023U);
    scratch_.Write("suite.ini", Profile("Database", source.c_str()));
    EXPECT_FALSE(suite::OpenFolder(scratch_.Path(), error_));
}

TEST_F(SuiteFolder, WhatIsNoSuiteFolderIsRefusedByName) {
    EXPECT_FALSE(suite::OpenFolder(scratch_.Path(), error_));
    EXPECT_EQ(error_, scratch_.Path("suite.ini") + ": No such file or directory");
    for (const char* key :
         {"ProjectProfile", "SettingsProfile", "MarkProfile", "RegisteredFolder", "Database"}) {
        for (const char* value : {static_cast<const char*>(nullptr), ""}) {
            scratch_.Write("suite.ini", Profile(key, value));
            EXPECT_FALSE(suite::OpenFolder(scratch_.Path(), error_)) << key;
            EXPECT_EQ(error_, scratch_.Path("suite.ini") + ": section [Suite] has no " + key);
        }
    }
    EXPECT_FALSE(suite::OpenFolder("", error_));
    EXPECT_EQ(error_, "the folder \"\": Invalid argument");
    scratch_.MakeFolder("😀");
    scratch_.Write("😀/suite.ini", Profile());
    EXPECT_FALSE(suite::OpenFolder(scratch_.Path("😀"), error_));
    EXPECT_EQ(error_, scratch_.Path("😀") + ": the path cannot be written in GBK");
}

TEST_F(SuiteFolder, ProcessesThatAgreeAtOnceForgetNothing) {
    constexpr int kPrograms = 4;
    constexpr int kFolders = 10;
    const auto root = [](int program, int folder) {
        return "/suites/" + std::to_string(program) + "-" + std::to_string(folder);
    };
    const std::vector<suite::OutsidePlace> places = {{"Database", "Server=a"}};
    for (int program = 0; program < kPrograms; ++program) {
        if (fork() == 0) {
            for (int folder = 0; folder < kFolders; ++folder) {
                suite::Agree(root(program, folder), places, error_);
            }
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    for (int i = 0; i < kPrograms * kFolders; ++i) {
        const std::string folder = root(i / kFolders, i % kFolders);
        EXPECT_TRUE(suite::NotAgreed(folder, places).empty()) << folder;
    }
}

TEST(InitString, OnlyTheFileOfAnSqliteDatabaseIsMadeAbsolute) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"relative", "Provider=SQLite;Data Source=a.db;Timeout=5",
         "Provider=SQLite;Data Source=\\f\\a.db;Timeout=5"},
        {"names without regard to case, blanks", " data source = sub/a.db ; PROVIDER = sqlite ",
         " data source = \\f\\sub\\a.db ; PROVIDER = sqlite "},
        {"absolute, with steps", "Provider=SQLite;Data Source=\\x\\..\\y\\.\\a.db",
         "Provider=SQLite;Data Source=\\y\\a.db"},
        {"in quotes", "Provider=\"SQLite\";Data Source=\"a.db\"",
         "Provider=\"SQLite\";Data Source=\\f\\a.db"},
        {"a semicolon in quotes", "Data Source='a;b.db';Provider=SQLite",
         "Data Source=\"\\f\\a;b.db\";Provider=SQLite"},
        {"doubled quotes", "Data Source='it''s;.db';Provider=SQLite",
         "Data Source=\"\\f\\it's;.db\";Provider=SQLite"},
        {"a data source that is a name", "Provider=MSDASQL;Data Source=lab",
         "Provider=MSDASQL;Data Source=lab"},
        {"no data source", "Provider=SQLite", "Provider=SQLite"},
        {"no provider", "Data Source=a.db", "Data Source=a.db"},
    };
    for (const auto& [reason, given, expected] : rows) {
        EXPECT_EQ(suite::WithAbsoluteDataSource("\\f", given), expected) << reason;
    }
}

TEST(InitString, PathsAreWalkedByWholeCharacters) {
    const std::string name = win32::GbkFromUtf8("誠\\.誠");
    EXPECT_EQ(suite::AbsolutePath("\\f", name), "\\f\\" + name);
    EXPECT_EQ(suite::AbsolutePath("\\", "a"), "\\a");
    EXPECT_EQ(suite::AbsolutePath("\\f", "..\\..\\"), "\\");
}
