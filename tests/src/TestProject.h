#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "src/common/module_state.h"
#include "tests/src/ProjectFolder.h"

/// A suite folder whose project database holds project 1, number "GC1", and nothing of it, with
/// that project as the current one and every other module-wide value as it is right after loading.
class TestProject {
public:
    TestProject() {
        Sql("INSERT INTO x_GongCheng VALUES(1,'GC1','某工程',0,0)");
        ResetModuleState();
        ProjectContext = {1, "GC1", 0, ""};
    }
    ~TestProject() { ResetModuleState(); }
    TestProject(const TestProject&) = delete;
    TestProject& operator=(const TestProject&) = delete;

    /// Runs statements (UTF-8) and gives the rows of their results, columns joined by "|".
    std::vector<std::string> Sql(const std::string& statements) const {
        return project_.Database().RowList(statements);
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
    static void ResetModuleState() {
        ChartMode = kChartModeNotSet;
        ProjectContext = {};
        Annotation = {};
        OuterFrameOption = RightAxisOption = RecomputePercentages = GuardedCurves = false;
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

    ProjectFolder project_;
    std::filesystem::path folder_ = project_.Path();
};
