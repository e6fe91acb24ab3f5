#include "apps/grdx/new_suite.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "apps/grdx/Failure.h"
#include "apps/grdx/sheet_template.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace fs = std::filesystem;

namespace {
// What the project table's columns hold, in bytes of GBK.
constexpr std::size_t kNumberLimit = 20;
constexpr std::size_t kNameLimit = 150;

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

/// The text in GBK; Failure when it is too long, or holds what GBK or a profile cannot.
std::string CheckedText(const std::string& text, const char* what, std::size_t limit) {
    std::string gbk;
    if (!win32::TryGbkFromUtf8(text, gbk)) {
        throw Failure(std::string(what) + " \"" + text + "\": a character that GBK does not have");
    }
    if (gbk.size() > limit) {
        throw Failure(std::string(what) + " \"" + text + "\": more than " + std::to_string(limit) +
                      " bytes in GBK");
    }
    if (std::any_of(gbk.begin(), gbk.end(), [](unsigned char c) { return c < 0x20; })) {
        throw Failure(std::string(what) + ": a control character");
    }
    return gbk;
}

/// The number names a folder below the suite's.
std::string CheckedNumber(const std::string& number) {
    if (number.empty() || number == "." || number == ".." ||
        number.find_first_of("\\/'") != std::string::npos || number.front() == ' ' ||
        number.back() == ' ') {
        throw Failure("project number \"" + number +
                      "\": it names a folder, so it must not be empty, hold \\ / or ', or have "
                      "blanks around it");
    }
    return CheckedText(number, "project number", kNumberLimit);
}

/// A value that reads back as it is: profiles take blanks and quotes off its ends.
std::string ProfileValue(const std::string& gbk) {
    const bool bare = gbk.empty() || (gbk.find_first_of(" '\"") != 0 &&
                                      gbk.find_last_of(" '\"") != gbk.size() - 1);
    return bare ? gbk : '"' + gbk + '"';
}

void WriteFile(const fs::path& path, const std::string& content) {
    std::string error;
    if (!win32::ReplaceFileWhole(path.string(), content, error)) {
        throw Failure(error);
    }
}

void SaveDrawing(AcDbDatabase& database, const fs::path& path) {
    std::string windowsPath;
    if (!win32::WindowsPath(path.string(), windowsPath)) {
        throw Failure(path.string() + ": the path has a character that GBK does not have");
    }
    if (database.saveAs(windowsPath.c_str()) != Acad::eOk) {
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

void WriteProfiles(const fs::path& folder, const ProjectData& project) {
    const std::string number = CheckedNumber(project.number);
    const std::string name = CheckedText(project.name, "project name", kNameLimit);
    WriteFile(folder / kSuiteFile, kSuiteProfile);
    WriteFile(folder / "project.ini", "[Project]\nGCSY=" + std::to_string(project.index) +
                                          "\nGCBH=" + ProfileValue(number) +
                                          "\nGCBZ=" + std::to_string(project.code) +
                                          "\nGCMC=" + ProfileValue(name) + "\nGCSJ=0\n");
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

void MakeSuiteFolder(const std::string& folder, const ProjectData& project) {
    // Without a slash at its end, which would count as one more name.
    const fs::path path = (fs::absolute(folder) / "").parent_path().lexically_normal();
    NewFolder made(path);
    WriteProfiles(made.Workshop(), project);
    WriteSupport(made.Workshop() / "Support");
    {
        SqliteDatabase database((made.Workshop() / "project.db").string(),
                                SqliteDatabase::Mode::Create);
        MakeProjectTables(database, project);
    }
    made.Finish();
}

}  // namespace console
