#include "src/db/project_database.h"

#include <gtest/gtest.h>

#include "platform/oledb/last_error.h"
#include "src/db/project_tables.h"
#include "src/db/table_filters.h"
#include "tests/src/db/DatabaseFixture.h"

namespace {

using ProjectDatabase = DatabaseFixture;

bool OpenTable() {
    CGongChengTable table;
    return table.Open(table.BuildQuery(ProjectFilter(12)));
}

TEST_F(ProjectDatabase, FailedStepsAreTriedAgainAndDoneOnesAreNot) {
    suite::CloseFolder();
    EXPECT_FALSE(OpenTable()) << "no initialisation string";
    project_.WriteSuiteFile("Provider=Nobody;Data Source=project.db");
    EXPECT_FALSE(OpenTable());
    EXPECT_NE(oledb::LastErrorText().find("Nobody"), std::string::npos);
    project_.WriteSuiteFile("Provider=SQLite;Data Source=missing.db");
    EXPECT_FALSE(OpenTable());
    EXPECT_EQ(ProjectSession(), nullptr);
    project_.WriteSuiteFile("Provider=SQLite;Data Source=project.db");
    EXPECT_TRUE(OpenTable()) << oledb::LastErrorText();
    suite::CloseFolder();
    EXPECT_TRUE(OpenTable()) << "the string is asked for once";
    CloseProjectDatabase();
    EXPECT_FALSE(OpenTable());
    EXPECT_EQ(Box(), "");
}

TEST_F(ProjectDatabase, ClosingLeavesTheFileToOthers) {
    ASSERT_TRUE(OpenTable());
    CloseProjectDatabase();
    CloseProjectDatabase();
    Run("PRAGMA journal_mode=DELETE");  // fails while another connection is open
    EXPECT_EQ(Rows("PRAGMA journal_mode"), "delete");
}

TEST_F(ProjectDatabase, TheRegisteredFolderStaysUnknownWithoutASuite) {
    std::string folder = "before";
    EXPECT_TRUE(QueryRegisteredFolder(folder));
    EXPECT_NE(folder, "before");
    suite::CloseFolder();
    folder = "before";
    EXPECT_FALSE(QueryRegisteredFolder(folder));
    EXPECT_EQ(folder, "before");
}

TEST_F(ProjectDatabase, EachTableThatDoesNotOpenHasItsText) {
    const std::pair<int, const char*> cases[] = {
        {2, "不能打开常规试验表,请检查数据!"},
        {3, "不能打开颗分试验表!请检查!"},
        {4, "不能打开颗分试验项目表,请检查数据!"},
        {5, "不能打开工点信息数据表,请检查数据!"},
        {6, ""},
    };
    for (const auto& [code, text] : cases) {
        ReportTableOpenError(code);
        EXPECT_EQ(Box(), text);
    }
}

}  // namespace
