#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/suite/suite_folder.h"
#include "src/db/project_database.h"
#include "tests/platform/oledb/SqliteTestDatabase.h"

/// The class columns of the result table, coarsest first.
inline constexpr const char* kClassColumns[] = {
    "KL800", "KL400", "KL200",  "KL60",   "KL40",  "KL20",  "KL10",   "KL5",    "KL2", "KL_5",
    "KL_25", "KL_1",  "KL_075", "KL_074", "KL_05", "KL_01", "KL_005", "KL_002", "KL0"};

/// A suite folder, open while the object lives, with a project database whose tables are there and
/// empty. Columns have no declared types, as in a database that somebody else has made.
class ProjectFolder {
public:
    ProjectFolder() {
        WriteSuiteFile("Provider=SQLite;Data Source=project.db");
        std::string results = "x_id INTEGER PRIMARY KEY,GCSY,ZKBH,QYBH,KLSYFF";
        for (const char* column : kClassColumns) results += std::string(",") + column;
        results += ",KLD10,KLD15,KLD30,KLD50,KLD60,KLD85,KLD90,KLD95,KLTYZL,KLHL,KLBJXS,KLQLXS";
        database_.Run("CREATE TABLE x_GongCheng(GCSY,GCBH,GCMC,GCBZ,GCSJ)");
        database_.Run("CREATE TABLE z_c_QuYang(GCSY,ZKBH,QYBH,QYSD,QYHD)");
        database_.Run("CREATE TABLE Z_c_KeFen(" + results + ")");
        database_.Run("CREATE TABLE Z_c_KeFenCSXM(GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL)");
        database_.Run("CREATE TABLE x_SheJi(GCSY,ZCBH,YCBH,CSLX,CSV)");
    }
    ~ProjectFolder() {
        CloseProjectDatabase();
        suite::CloseFolder();
    }
    ProjectFolder(const ProjectFolder&) = delete;
    ProjectFolder& operator=(const ProjectFolder&) = delete;

    void WriteSuiteFile(const std::string& initString) const {
        std::ofstream(folder_.Path("suite.ini"))
            << "[Suite]\nProjectProfile=project.ini\nSettingsProfile=settings.ini\n"
               "MarkProfile=marks.ini\nRegisteredFolder=.\nDatabase="
            << initString << "\n";
        setenv("XDG_CONFIG_HOME", configuration_.Path().c_str(), 1);
        std::string error;
        std::vector<suite::OutsidePlace> places;
        EXPECT_TRUE(suite::CheckFolder(folder_.Path(), places, error) &&
                    suite::AgreeToFolder(folder_.Path(), places, error) &&
                    suite::OpenFolder(folder_.Path(), error))
            << error;
    }
    std::string Path() const { return folder_.Path(); }
    const SqliteTestDatabase& Database() const { return database_; }

private:
    ScratchFolder configuration_;
    ScratchFolder folder_;
    SqliteTestDatabase database_{folder_.Path("project.db").c_str()};
};
