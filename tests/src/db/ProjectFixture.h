#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "src/common/module_state.h"
#include "src/db/project_database.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"

/// The class columns of the result table, coarsest first.
inline constexpr const char* kClassColumns[] = {
    "KL800", "KL400", "KL200",  "KL60",   "KL40",  "KL20",  "KL10",   "KL5",    "KL2", "KL_5",
    "KL_25", "KL_1",  "KL_075", "KL_074", "KL_05", "KL_01", "KL_005", "KL_002", "KL0"};

/// A suite folder with a project database whose tables are there and empty. Columns have no
/// declared types, as in a database that somebody else has made.
class ProjectFixture : public testing::Test {
protected:
    ProjectFixture() {
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
        WriteSuiteFile("Provider=SQLite;Data Source=project.db");
        std::string results = "x_id INTEGER PRIMARY KEY,GCSY,ZKBH,QYBH,KLSYFF";
        for (const char* column : kClassColumns) results += std::string(",") + column;
        results += ",KLD10,KLD15,KLD30,KLD50,KLD60,KLD85,KLD90,KLD95,KLTYZL,KLHL,KLBJXS,KLQLXS";
        database_.emplace(folder_.File("project.db").c_str());
        database_->Run("CREATE TABLE x_GongCheng(GCSY,GCBH,GCMC,GCBZ,GCSJ)");
        database_->Run("CREATE TABLE z_c_QuYang(GCSY,ZKBH,QYBH,QYSD,QYHD)");
        database_->Run("CREATE TABLE Z_c_KeFen(" + results + ")");
        database_->Run("CREATE TABLE Z_c_KeFenCSXM(GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL)");
        database_->Run("CREATE TABLE x_SheJi(GCSY,ZCBH,YCBH,CSLX,CSV,note)");
        ProjectContext.GCSY = 12;
        CurrentBorehole = "ZK3";
        CurrentSample = "5";
        CurrentMainLayer = "2";
        CurrentSubLayer = "1";
        RecomputePercentages = false;
    }
    ~ProjectFixture() override {
        CloseProjectDatabase();
        suite::CloseFolder();
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
    }

    void WriteSuiteFile(const std::string& initString) {
        std::ofstream(folder_.File("suite.ini"))
            << "[Suite]\nProjectProfile=project.ini\nSettingsProfile=settings.ini\n"
               "MarkProfile=marks.ini\nRegisteredFolder=.\nDatabase="
            << initString << "\n";
        std::string error;
        ASSERT_TRUE(suite::OpenFolder(folder_.File(""), error)) << error;
    }
    void Run(const std::string& sql) { database_->Run(sql); }
    std::string Rows(const std::string& select) { return database_->Rows(select); }
    /// A result row of the current sample, apart from its key and total mass as given.
    void AddResultRow(const std::string& columns = "", const std::string& values = "") {
        Run("INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL" + columns + ") VALUES(12,'ZK3','5',500" +
            values + ")");
    }
    /// The one box shown since the last call, or the empty text for none; UTF-8.
    std::string Box() {
        EXPECT_LE(windows_.Shown().size(), 1U);
        std::string text;
        if (!windows_.Shown().empty()) {
            EXPECT_EQ(windows_.Shown().back().type, MB_OK);
            text = win32::Utf8FromGbk(windows_.Shown().back().text);
        }
        windows_.Reset();
        return text;
    }
    std::string Printed() { return win32::Utf8FromGbk(std::exchange(printed_, "")); }

    TestFolder folder_;
    std::optional<SqliteTestDatabase> database_;
    mfc::ScriptedWindowSystem windows_;
    std::string printed_;
};
