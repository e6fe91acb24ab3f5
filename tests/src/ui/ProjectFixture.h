#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/ed/command_line.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/mfc/resources.h"
#include "platform/suite/orvik8.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/clock.h"
#include "platform/win32/code_page.h"
#include "src/common/module_state.h"
#include "src/db/project_database.h"
#include "src/ui/plugin_resources.h"

/// A suite folder of its own with an empty project 1, number "GC1", whose data are checked; a
/// scripted user; module-wide values as they are right after loading. Texts of the tests are UTF-8,
/// those of files and dialogs GBK.
class ProjectFixture : public ::testing::Test {
public:
    static std::string Gbk(const std::string& utf8) { return win32::GbkFromUtf8(utf8); }
    static std::string Utf8(const std::string& gbk) { return win32::Utf8FromGbk(gbk); }

    const std::filesystem::path& Folder() const { return folder_; }

    void WriteText(const std::string& name, const std::string& utf8) const {
        std::ofstream(folder_ / name, std::ios::binary) << Gbk(utf8);
    }
    std::string ReadText(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(folder_ / name, std::ios::binary).rdbuf();
        return Utf8(text.str());
    }
    void WriteProject(const std::string& keys) const {
        WriteText("project.ini", "[Project]\r\n" + keys);
    }

    void Sql(const std::string& statement) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open((folder_ / "project.db").c_str(), &database), SQLITE_OK);
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(database, statement.c_str(), nullptr, nullptr, &error), SQLITE_OK)
            << statement << ": " << (error == nullptr ? "" : error);
        sqlite3_free(error);
        sqlite3_close(database);
    }
    /// A sample whose sieve items of 10 g each make up `total` g; names are written to the database
    /// as they stand.
    void AddSample(const std::string& borehole, const std::string& sample,
                   const std::string& method = "筛析法", double total = 50.0) const {
        const std::string key = "1,'" + borehole + "','" + sample + "'";
        std::string items;
        int number = 0;
        for (const char* size : {"2", "0.5", "0.25", "0.075", "0"}) {
            items += items.empty() ? "" : ",";
            items += "(" + key + "," + std::to_string(++number) + "," + size + ",10)";
        }
        Sql("INSERT INTO Z_c_KeFenCSXM VALUES " + items + ";INSERT INTO z_c_QuYang VALUES (" + key +
            ",1.5,0.3);INSERT INTO Z_c_KeFen (GCSY,ZKBH,QYBH,KLSYFF,KLTYZL) VALUES (" + key + ",'" +
            method + "'," + std::to_string(total) + ");");
    }
    void AddLayer(int mainLayer, int subLayer) const {
        const std::string key = std::to_string(mainLayer) + "," + std::to_string(subLayer);
        Sql("INSERT INTO x_SheJi VALUES (1," + key + ",1105,'20'),(1," + key + ",1108,'30'),(1," +
            key + ",1109,'40'),(1," + key + ",1118,'10')");
    }

    /// What the user does next when a window waits; `window` shows its state.
    using Step = std::function<std::vector<mfc::Answer>(mfc::FrameModel& window)>;
    void Then(Step step) { steps_.push_back(std::move(step)); }
    void Then(std::vector<mfc::Answer> answers) {
        Then([answers](mfc::FrameModel&) { return answers; });
    }
    static mfc::Answer Page(int number) { return {mfc::Answer::Kind::Page, number}; }
    static mfc::Answer Press(int id) { return {mfc::Answer::Kind::Press, id}; }
    static mfc::Answer Check(int id, bool on) { return {mfc::Answer::Kind::Check, id, {}, on}; }
    static mfc::Answer Box(int button) { return {mfc::Answer::Kind::Box, button}; }
    static mfc::Answer Type(int id, const std::string& text) {
        return {mfc::Answer::Kind::Type, id, {Gbk(text)}};
    }
    static mfc::Answer Select(int id, std::vector<std::string> texts) {
        std::transform(texts.begin(), texts.end(), texts.begin(), Gbk);
        return {mfc::Answer::Kind::Select, id, texts};
    }

    /// Items of a list on the page in front of a sheet, or in a dialog.
    static std::vector<std::string> Items(mfc::FrameModel& window, int id) {
        auto* const dialog = window.Kind() == mfc::WindowKind::Sheet
                                 ? static_cast<mfc::SheetModel&>(window).ActiveDialog()
                                 : static_cast<mfc::DialogModel*>(&window);
        std::vector<std::string> texts;
        for (const auto& item : static_cast<mfc::ListBoxModel*>(dialog->Find(id))->Items()) {
            texts.push_back(Utf8(item.text));
        }
        return texts;
    }
    /// Texts of the boxes shown since the last call, in order.
    std::vector<std::string> Boxes() { return std::exchange(boxes_, {}); }
    /// What was printed on the command line since the last call.
    std::string Printed() { return std::exchange(printed_, {}); }

protected:
    void SetUp() override {
        static const HINSTANCE instance = mfc::RegisterModule(PluginResources());
        ExtensionModule.AttachInstance(instance);
        MakeFolder();
        ResetModuleState();
        std::string error;
        ASSERT_TRUE(suite::OpenFolder(folder_.string(), error)) << error;
        ProjectProfilePath = PathFrom(GetProjectProfilePath);
        SettingsProfilePath = PathFrom(GetSettingsProfilePath);
        MarkProfilePath = PathFrom(GetMarkProfilePath);
        win32::SetClock([] { return std::time_t{1700000000}; });
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += Utf8(text); });
        windows_.SetBoxSink([this](const mfc::MessageBoxRequest& request) {
            boxes_.push_back(Utf8(request.text));
        });
        windows_.SetAnswerSource([this](mfc::FrameModel& window) { return NextStep(window); });
        mfc::SetWindowSystem(&windows_);
    }

    void TearDown() override {
        EXPECT_EQ(windows_.Error(), "");
        EXPECT_TRUE(steps_.empty()) << steps_.size() << " steps were not asked for";
        EXPECT_TRUE(windows_.LeftAnswers().empty());
        mfc::SetWindowSystem(nullptr);
        ed::SetCommandLineSink(nullptr);
        win32::SetClock(nullptr);
        CloseProjectDatabase();
        suite::CloseFolder();
        ResetModuleState();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        std::filesystem::remove_all(folder_);
    }

    mfc::ScriptedWindowSystem& Windows() { return windows_; }

private:
    static std::string PathFrom(void (*operation)(char*)) {
        char buffer[256];
        operation(buffer);
        return buffer;
    }

    static void ResetModuleState() {
        ChartMode = kChartModeNotSet;
        ProjectContext = {};
        SelectedItems.clear();
        SelectedCount = 0;
        for (std::string* text :
             {&CurrentBorehole, &CurrentSample, &PreviousSample, &CurrentMainLayer,
              &CurrentSubLayer, &CurrentMethod, &SheetMethods, &LastSheetPath, &ProjectProfilePath,
              &SettingsProfilePath, &MarkProfilePath}) {
            text->clear();
        }
        MadeSheets.clear();
        OpenedFromChartCommand = 0;
        Annotation = {};
        OuterFrameOption = RightAxisOption = RecomputePercentages = false;
        CurveDataChanged = StoreFromReactor = 0;
    }

    void MakeFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "grdx-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        WriteText("suite.ini",
                  "[Suite]\r\nProjectProfile=project.ini\r\nSettingsProfile=settings.ini\r\n"
                  "MarkProfile=marks.ini\r\nRegisteredFolder=.\r\n"
                  "Database=Provider=SQLite;Data Source=project.db\r\n");
        WriteProject("GCSY=1\r\nGCBH=GC1\r\nGCBZ=0\r\nGCMC=某工程\r\nGCSJ=0\r\n");
        std::string results = "GCSY INTEGER,ZKBH TEXT,QYBH TEXT,KLSYFF TEXT";
        for (const char* column :
             {"KL800",  "KL400",  "KL200", "KL60",   "KL40",   "KL20",   "KL10",  "KL5",
              "KL2",    "KL_5",   "KL_25", "KL_1",   "KL_075", "KL_074", "KL_05", "KL_01",
              "KL_005", "KL_002", "KL0",   "KLD10",  "KLD15",  "KLD30",  "KLD50", "KLD60",
              "KLD85",  "KLD90",  "KLD95", "KLTYZL", "KLHL",   "KLBJXS", "KLQLXS"}) {
            results += std::string(",") + column + " REAL";
        }
        Sql("CREATE TABLE x_GongCheng(GCSY INTEGER,GCBH TEXT,GCMC TEXT,GCBZ INTEGER,GCSJ INTEGER);"
            "CREATE TABLE z_c_QuYang(GCSY INTEGER,ZKBH TEXT,QYBH TEXT,QYSD REAL,QYHD REAL);"
            "CREATE TABLE Z_c_KeFen(" +
            results +
            ");"
            "CREATE TABLE Z_c_KeFenCSXM(GCSY INTEGER,ZKBH TEXT,QYBH TEXT,XH INTEGER,KLLJ REAL,"
            "KLSYZL REAL);"
            "CREATE TABLE x_SheJi(GCSY INTEGER,ZCBH INTEGER,YCBH INTEGER,CSLX INTEGER,CSV TEXT);"
            "INSERT INTO x_GongCheng VALUES (1,'GC1','某工程',0,0);");
    }

    std::vector<mfc::Answer> NextStep(mfc::FrameModel& window) {
        if (steps_.empty()) {
            windows_.Fail("a window waits and no step is left");
            return {};
        }
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        return step(window);
    }

    std::filesystem::path folder_;
    mfc::ScriptedWindowSystem windows_;
    std::deque<Step> steps_;
    std::vector<std::string> boxes_;
    std::string printed_;
};
