// Showing the browsers over a chart folder of 10,000 sheets, from the command to the listed labels.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/mfc/afx.h"
#include "platform/mfc/resources.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"
#include "src/common/module_state.h"
#include "src/db/project_database.h"
#include "src/facts/control_ids.h"
#include "src/ui/CChartBrowser.h"
#include "src/ui/plugin_resources.h"

namespace {

constexpr int kSheets = 10000;

/// A suite folder with one borehole, and a chart folder of files named `prefix` and a number.
class BrowsedFolder {
public:
    explicit BrowsedFolder(const std::string& prefix) {
        std::string pattern = std::filesystem::temp_directory_path() / "grdx-bench-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        std::filesystem::create_directory(folder_ / "charts");
        for (int i = 1; i <= kSheets; ++i) {
            std::ofstream(folder_ / "charts" / (prefix + std::to_string(i) + ".dwg")) << "x";
        }
        std::ofstream(folder_ / "suite.ini")
            << "[Suite]\nProjectProfile=p.ini\nSettingsProfile=s.ini\nMarkProfile=m.ini\n"
               "RegisteredFolder=.\nDatabase=Provider=SQLite;Data Source=project.db\n";
        MakeDatabase();
        std::string error;
        suite::OpenFolder(folder_, error);
        ProjectContext.GCSY = 1;
    }
    ~BrowsedFolder() {
        CloseProjectDatabase();
        suite::CloseFolder();
        std::filesystem::remove_all(folder_);
    }
    BrowsedFolder(const BrowsedFolder&) = delete;
    BrowsedFolder& operator=(const BrowsedFolder&) = delete;

    /// The chart folder as the openers hand it to a browser.
    std::string Charts() const {
        std::string path;
        win32::WindowsPath((folder_ / "charts").string(), path);
        return path + "\\";
    }

private:
    void MakeDatabase() const {
        sqlite3* database = nullptr;
        sqlite3_open((folder_ / "project.db").c_str(), &database);
        sqlite3_exec(database,
                     "CREATE TABLE Z_c_KeFenCSXM(GCSY INTEGER,ZKBH TEXT,QYBH TEXT,XH INTEGER,"
                     "KLLJ REAL,KLSYZL REAL);"
                     "INSERT INTO Z_c_KeFenCSXM VALUES(1,'B1','1',1,2,10);",
                     nullptr, nullptr, nullptr);
        sqlite3_close(database);
    }

    std::filesystem::path folder_;
};

/// Shows a browser whose user looks at the list and cancels.
template <class Browser>
void ListSheets(benchmark::State& state, const char* prefix) {
    static const HINSTANCE instance = mfc::RegisterModule(PluginResources());
    ExtensionModule.AttachInstance(instance);
    AfxSetResourceHandle(ExtensionModule.ModuleResourceInstance());
    const BrowsedFolder folder(prefix);
    const std::string charts = folder.Charts();
    mfc::ScriptedWindowSystem windows;
    std::size_t listed = 0;
    windows.SetAnswerSource([&listed](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        auto* const list = static_cast<mfc::DialogModel&>(window).Find(IDC_SHEETS);
        listed = static_cast<mfc::ListBoxModel*>(list)->Items().size();
        return {};
    });
    mfc::SetWindowSystem(&windows);
    for ([[maybe_unused]] const auto iteration : state) {
        Browser browser(charts);
        browser.DoModal();
        windows.Reset();
    }
    mfc::SetWindowSystem(nullptr);
    AfxSetResourceHandle(nullptr);
    if (listed != kSheets) {
        state.SkipWithError("not every sheet is listed");
    }
}
void LayerSheets10000(benchmark::State& state) {
    ListSheets<CLayerBrowser>(state, "KFSJ");
}
BENCHMARK(LayerSheets10000)->Unit(benchmark::kMillisecond);

void SampleSheets10000(benchmark::State& state) {
    ListSheets<CSampleBrowser>(state, "KFB1-");
}
BENCHMARK(SampleSheets10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
