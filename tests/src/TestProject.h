#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/suite/suite_folder.h"
#include "src/common/module_state.h"
#include "src/db/project_database.h"

/// A suite folder with a project database that holds project 1, number "GC1", and nothing of it,
/// open while the object lives, with that project as the current one and every other module-wide
/// value as it is right after loading.
class TestProject {
public:
    TestProject() {
        std::string name = (std::filesystem::temp_directory_path() / "chart-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
        std::ofstream(folder_ / "suite.ini")
            << "[Suite]\nProjectProfile=project.ini\nSettingsProfile=settings.ini\n"
               "MarkProfile=marks.ini\nRegisteredFolder=.\n"
               "Database=Provider=SQLite;Data Source=project.db\n";
        Sql("CREATE TABLE x_GongCheng(GCSY INTEGER, GCBH TEXT, GCMC TEXT, GCBZ INTEGER,"
            "GCSJ INTEGER);"
            "INSERT INTO x_GongCheng VALUES(1,'GC1','某工程',0,0);"
            "CREATE TABLE z_c_QuYang(GCSY INTEGER, ZKBH TEXT, QYBH TEXT, QYSD REAL, QYHD REAL);"
            "CREATE TABLE Z_c_KeFen(GCSY INTEGER, ZKBH TEXT, QYBH TEXT, KLSYFF TEXT, KL800 REAL,"
            "KL400 REAL, KL200 REAL, KL60 REAL, KL40 REAL, KL20 REAL, KL10 REAL, KL5 REAL,"
            "KL2 REAL, KL_5 REAL, KL_25 REAL, KL_1 REAL, KL_075 REAL, KL_074 REAL, KL_05 REAL,"
            "KL_01 REAL, KL_005 REAL, KL_002 REAL, KL0 REAL, KLD10 REAL, KLD15 REAL, KLD30 REAL,"
            "KLD50 REAL, KLD60 REAL, KLD85 REAL, KLD90 REAL, KLD95 REAL, KLTYZL REAL, KLHL REAL,"
            "KLBJXS REAL, KLQLXS REAL);"
            "CREATE TABLE Z_c_KeFenCSXM(GCSY INTEGER, ZKBH TEXT, QYBH TEXT, XH INTEGER, KLLJ REAL,"
            "KLSYZL REAL);"
            "CREATE TABLE x_SheJi(GCSY INTEGER, ZCBH INTEGER, YCBH INTEGER, CSLX INTEGER,"
            "CSV TEXT);");
        std::string error;
        EXPECT_TRUE(suite::OpenFolder(folder_.string(), error)) << error;
        ResetModuleState();
        ProjectContext = {1, "GC1", 0, ""};
    }
    ~TestProject() {
        ResetModuleState();
        CloseProjectDatabase();
        suite::CloseFolder();
        std::filesystem::remove_all(folder_);
    }
    TestProject(const TestProject&) = delete;
    TestProject& operator=(const TestProject&) = delete;

    /// Runs statements (UTF-8) and gives the rows of their results, columns joined by "|".
    std::vector<std::string> Sql(const std::string& statements) const {
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open((folder_ / "project.db").c_str(), &database), SQLITE_OK);
        std::vector<std::string> rows;
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), AddRow, &rows, &error), SQLITE_OK)
            << error;
        sqlite3_free(error);
        sqlite3_close(database);
        return rows;
    }

    struct Item {
        double size;
        double mass;
    };
    /// A sample with its sieve items and an empty result row; names go to the database as they
    /// stand.
    void InsertSample(const std::string& borehole, const std::string& sample, double total,
                      const std::vector<Item>& items, const std::string& method) const {
        const std::string key = "1,'" + borehole + "','" + sample + "',";
        std::string statements = "INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLSYFF,KLTYZL) VALUES(" +
                                 key + "'" + method + "'," + std::to_string(total) + ");";
        int number = 0;
        for (const Item& item : items) {
            statements += "INSERT INTO Z_c_KeFenCSXM VALUES(" + key + std::to_string(++number) +
                          "," + std::to_string(item.size) + "," + std::to_string(item.mass) + ");";
        }
        Sql(statements);
    }
    /// The same in borehole ZK3, and becomes the current sample.
    void AddSample(const std::string& sample, double total, const std::vector<Item>& items,
                   const std::string& method = "筛分法") const {
        InsertSample("ZK3", sample, total, items, method);
        CurrentBorehole = "ZK3";
        CurrentSample = sample;
        ChartMode = kSampleCharts;
    }

    struct Parameter {
        int code;
        const char* value;
    };
    void InsertLayer(int mainLayer, int subLayer, const std::vector<Parameter>& parameters) const {
        std::string statements;
        for (const Parameter& parameter : parameters) {
            statements += "INSERT INTO x_SheJi VALUES(1," + std::to_string(mainLayer) + "," +
                          std::to_string(subLayer) + "," + std::to_string(parameter.code) + ",'" +
                          parameter.value + "');";
        }
        Sql(statements);
    }
    /// Design values of layer 2-1, which becomes the current one.
    void AddLayer(const std::vector<Parameter>& parameters) const {
        InsertLayer(2, 1, parameters);
        CurrentSample = "2-1";
        CurrentMainLayer = "2";
        CurrentSubLayer = "1";
        ChartMode = kLayerCharts;
    }

    const std::filesystem::path& Folder() const { return folder_; }

private:
    static int AddRow(void* rows, int columns, char** values, char**) {
        std::string row;
        for (int i = 0; i < columns; ++i) {
            row += std::string(i == 0 ? "" : "|") + (values[i] == nullptr ? "null" : values[i]);
        }
        static_cast<std::vector<std::string>*>(rows)->push_back(row);
        return 0;
    }

    static void ResetModuleState() {
        ChartMode = kChartModeNotSet;
        ProjectContext = {};
        Annotation = {};
        OuterFrameOption = RightAxisOption = RecomputePercentages = false;
        SelectedItems.clear();
        SelectedCount = 0;
        MadeSheets.clear();
        OpenedFromChartCommand = CurveDataChanged = StoreFromReactor = 0;
        for (std::string* text :
             {&CurrentBorehole, &CurrentSample, &CurrentMainLayer, &CurrentSubLayer, &CurrentMethod,
              &PreviousSample, &SheetMethods, &LastSheetPath, &ProjectProfilePath,
              &SettingsProfilePath, &MarkProfilePath}) {
            text->clear();
        }
        QvFontStyleId.setNull();
    }

    std::filesystem::path folder_;
};
