#include "apps/grdx/new_suite.h"

#include <filesystem>
#include <optional>

#include "apps/grdx/Failure.h"
#include "apps/grdx/sheet_template.h"
#include "lab/project_texts.h"
#include "platform/db/AcDbDatabase.h"
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
    "Database=Provider=SQLite;Data Source=project.db\n";
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

void WriteProfiles(const fs::path& folder, const ProjectEntry& project) {
    const std::string number = lab::CheckedProjectNumber(project.number);
    const std::string name = lab::CheckedProjectName(project.name);
    WriteFile(folder / kSuiteFile, kSuiteProfile);
    WriteFile(folder / "project.ini", "[Project]\nGCSY=" + std::to_string(project.index) +
                                          "\nGCBH=" + lab::ProfileValue(number) +
                                          "\nGCBZ=" + std::to_string(project.code) +
                                          "\nGCMC=" + lab::ProfileValue(name) + "\nGCSJ=0\n");
    WriteFile(folder / "settings.ini", "[CKFDlg]\n[MDI]\nMDIMODE=0\n");
    WriteFile(folder / "marks.ini", "[CKFDlg]\n");
}

void WriteSupport(const fs::path& folder) {
    fs::create_directory(folder);
    WriteFile(folder / "fonts.ini", kFontMapping);
    AcDbDatabase blank(true, true);
    SaveDrawing(blank, folder / "Drawing.dwg");
    SaveDrawing(*MakeSheetTemplate(), folder / "gltka3.dwg");
}
}  // namespace

void MakeSuiteFolder(const std::string& folder, const ProjectEntry& project) {
    // Without a slash at its end, which would count as one more name.
    const fs::path path = (fs::absolute(folder) / "").parent_path().lexically_normal();
    NewFolder made(path);
    WriteProfiles(made.Workshop(), project);
    WriteSupport(made.Workshop() / "Support");
    {
        const std::string file = win32::Utf8FromGbk(WindowsPathOf(made.Workshop() / "project.db"));
        oledb::SqlDatabase database(
            "Provider=SQLite;Data Source=" + oledb::InitString::Written(file),
            oledb::Access::Create);
        MakeProjectTables(database, project);
    }
    made.Finish();
}

}  // namespace console
