#include "apps/grdx/new_suite.h"

#include <filesystem>
#include <optional>

#include "apps/grdx/Failure.h"
#include "apps/grdx/sheet_template.h"
#include "lab/project_texts.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/oledb/last_error.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace fs = std::filesystem;

namespace {
constexpr const char* kSuiteFile = "suite.ini";
constexpr const char* kSuiteProfile =
    "[Suite]\n"
    "ProjectProfile=project.ini\n"
    "SettingsProfile=settings.ini\n"
    "MarkProfile=marks.ini\n"
    "RegisteredFolder=.\n"
    "Database=";
constexpr const char* kFileDatabase = "Provider=SQLite;Data Source=project.db";
constexpr const char* kFontMapping =
    "[Fonts]\n"
    "comfont.shx=WenQuanYi Zen Hei Mono\n"
    "st64f.shx=WenQuanYi Zen Hei Mono\n"
    "hztxt.shx=WenQuanYi Zen Hei\n";

void WriteFile(const fs::path& path, const std::string& content) {
    std::string error;
    if (!win32::ReplaceFileWhole(path.string(), content, error)) {
        throw Failure(error);
    }
}

std::string WindowsPathOf(const fs::path& path) {
    std::string windowsPath;
    if (!win32::WindowsPath(path.string(), windowsPath)) {
        throw Failure(path.string() + ": the path has a character that GBK does not have");
    }
    return windowsPath;
}

void SaveDrawing(AcDbDatabase& database, const fs::path& path) {
    if (database.saveAs(WindowsPathOf(path).c_str()) != Acad::eOk) {
        throw Failure(database.lastFileError());
    }
}

/// The folder while it becomes a suite folder: new, or an empty one. Everything is made in a folder
/// within it, and put in its place at the end, suite.ini as the last. So a process that is killed
/// leaves no suite, but something that the next one clears away; and of two that make the same
/// folder the second finds what the first has made. Taken back unless it is finished.
class NewFolder {
public:
    explicit NewFolder(const fs::path& path) : path_(path) {
        CheckFree();
        std::error_code fault;
        for (fs::path missing = path; !fs::exists(missing, fault);
             missing = missing.parent_path()) {
            made_.push_back(missing);
        }
        fs::create_directories(path, fault);
        lock_.emplace((path / kSuiteFile).string());
        if (fault || !lock_->Fault().empty()) {
            throw Failure(fault ? path.string() + ": " + fault.message() : lock_->Fault());
        }
        CheckFree();
        fs::remove_all(Workshop());
        fs::create_directory(Workshop());
    }

    ~NewFolder() {
        std::error_code ignored;
        if (finished_) {
            return;
        }
        for (const fs::path& name : placed_) {
            fs::remove_all(path_ / name, ignored);
        }
        fs::remove_all(Workshop(), ignored);
        lock_.reset();
        for (const fs::path& folder : made_) {
            fs::remove(folder, ignored);
        }
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    /// Where the files are to be made.
    fs::path Workshop() const { return path_ / ".grdx-new"; }

    void Finish() {
        for (const auto& entry : fs::directory_iterator(Workshop())) {
            if (entry.path().filename() != kSuiteFile) {
                Place(entry.path().filename());
            }
        }
        Place(kSuiteFile);
        finished_ = true;
        std::error_code ignored;
        fs::remove(Workshop(), ignored);
    }

private:
    /// Failure when the folder holds anything but what another maker has left.
    void CheckFree() const {
        std::error_code fault;
        bool free = !fs::exists(path_, fault) || fs::is_directory(path_, fault);
        for (const auto& entry : fs::directory_iterator(path_, fault)) {
            const fs::path name = entry.path().filename();
            free = free && (name == Workshop().filename() ||
                            name == "." + std::string(kSuiteFile) + ".lock");
        }
        if (!free) {
            throw Failure(path_.string() +
                          ": there is something already; a suite folder is made "
                          "new or in an empty folder");
        }
    }

    void Place(const fs::path& name) {
        fs::rename(Workshop() / name, path_ / name);
        placed_.push_back(name);
    }

    fs::path path_;
    std::vector<fs::path> made_;  ///< the folders that were missing, innermost first
    std::vector<fs::path> placed_;
    std::optional<win32::FileLock> lock_;
    bool finished_ = false;
};

/// Those that are there already stay.
void WriteProfiles(const fs::path& folder, const lab::ProjectEntry& project,
                   const std::string& database) {
    const std::string number = lab::CheckedProjectNumber(project.number);
    const std::string name = lab::CheckedProjectName(project.name);
    WriteFile(folder / kSuiteFile, kSuiteProfile + lab::ProfileValue(database) + "\n");
    const auto write = [&](const char* file, const std::string& content) {
        if (!fs::exists(folder / file)) {
            WriteFile(folder / file, content);
        }
    };
    write("project.ini", "[Project]\nGCSY=" + std::to_string(project.index) + "\nGCBH=" +
                             lab::ProfileValue(number) + "\nGCBZ=" + std::to_string(project.code) +
                             "\nGCMC=" + lab::ProfileValue(name) +
                             "\nGCSJ=" + (project.checked ? "0" : "1") + "\n");
    write("settings.ini", "[CKFDlg]\n[MDI]\nMDIMODE=0\n");
    write("marks.ini", "[CKFDlg]\n");
}

void WriteSupport(const fs::path& folder) {
    fs::create_directory(folder);
    WriteFile(folder / "fonts.ini", kFontMapping);
    AcDbDatabase blank(true, true);
    SaveDrawing(blank, folder / "Drawing.dwg");
    SaveDrawing(*MakeSheetTemplate(), folder / "gltka3.dwg");
}

/// The initialisation string of a server in GBK, as it may stand in suite.ini.
std::string CheckedServer(const std::string& utf8) {
    const auto refuse = [](const std::string& reason) { throw Failure("database: " + reason); };
    oledb::InitString properties;
    const oledb::Provider* provider = nullptr;
    if (FAILED(oledb::ReadInitString(utf8, properties, provider))) {
        refuse(oledb::LastErrorText());
    }
    if (provider->name == std::string_view("SQLite")) {
        refuse("a file is made in the folder when none is named; this is for servers");
    }
    if (properties.Find("Pwd") != nullptr || properties.Find("Password") != nullptr) {
        refuse(
            "a password does not belong there, where others see it; it is taken from "
            "GRDX_DB_PASSWORD, or from where the driver looks by itself");
    }
    std::string gbk;
    if (!win32::TryGbkFromUtf8(utf8, gbk) || utf8.find_first_of("\r\n") != std::string::npos) {
        refuse("a character that suite.ini cannot hold");
    }
    return gbk;
}

/// Whoever made the folder with a server has agreed to that server.
void AgreeToServer(const std::string& folder) {
    std::vector<suite::OutsidePlace> places;
    std::string error;
    if (suite::CheckFolder(folder, places, error)) {
        std::erase_if(places, [](const auto& place) { return place.what != "Database"; });
    }
    if (!error.empty() || !suite::AgreeToFolder(folder, places, error)) {
        throw Failure(folder + " is made, but has to be agreed to by --trust: " + error);
    }
}

}  // namespace

void MakeSuiteFolder(const std::string& folder, const std::string& database,
                     const ProjectFilling& fill) {
    const std::string inProfile = database.empty() ? kFileDatabase : CheckedServer(database);
    // Without a slash at its end, which would count as one more name.
    const fs::path path = (fs::absolute(folder) / "").parent_path().lexically_normal();
    NewFolder made(path);
    WriteSupport(made.Workshop() / "Support");
    {
        const auto file = [&] {
            const std::string name = WindowsPathOf(made.Workshop() / "project.db");
            return "Provider=SQLite;Data Source=" +
                   oledb::InitString::Written(win32::Utf8FromGbk(name));
        };
        oledb::SqlDatabase opened(database.empty() ? file() : database, oledb::Access::Create);
        WriteProfiles(made.Workshop(), fill(opened, made.Workshop()), inProfile);
    }
    made.Finish();
    if (!database.empty()) {
        AgreeToServer(path.string());
    }
}

void MakeSuiteFolder(const std::string& folder, const lab::ProjectEntry& project,
                     const ProjectPlace& place) {
    lab::CheckedProjectNumber(project.number);
    lab::CheckedProjectName(project.name);
    MakeSuiteFolder(folder, place.database, [&](oledb::SqlDatabase& database, const fs::path&) {
        if (place.index != 0) {
            return lab::FindProject(database, place.index);
        }
        lab::ProjectEntry entered = project;
        lab::EnterProject(database, entered);
        return entered;
    });
}

}  // namespace console
