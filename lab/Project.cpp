#include "lab/Project.h"

#include <cstdlib>
#include <utility>

#include "lab/Failure.h"
#include "lab/ProjectRow.h"
#include "lab/project_texts.h"
#include "lab/suite_profiles.h"
#include "platform/win32/ProfileText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace lab {

namespace {
constexpr const char* kSection = "Project";

std::string ProfilePath() {
    return win32::FileSystemPath(ProjectProfilePath());
}

/// The project profile, read whole; its values are GBK.
class Profile {
public:
    explicit Profile(std::string path) : path_(std::move(path)), text_(Content(path_)) {}

    std::string Text(const char* key, const char* absent = "") const {
        std::string value;
        return text_.Find(kSection, key, value) && !value.empty() ? value : absent;
    }
    int Number(const char* key, const char* absent) const {
        return std::atoi(Text(key, absent).c_str());
    }
    void Set(const char* key, const std::string& gbk) {
        text_.Set(kSection, key, ProfileValue(gbk));
    }
    void Save() const {
        std::string error;
        if (!win32::ReplaceFileWhole(path_, text_.Text(), error)) {
            throw Failure(error);
        }
    }
    const std::string& FilePath() const { return path_; }

private:
    static std::string Content(const std::string& path) {
        std::string content;
        std::string error;
        if (!win32::ReadFileWhole(path, content, error)) {
            throw Failure(error);
        }
        return content;
    }

    std::string path_;
    win32::ProfileText text_;
};

int IndexIn(const Profile& profile) {
    const int index = profile.Number("GCSY", "-1");
    if (index < 0) {
        throw Failure(profile.FilePath() + " names no project (key GCSY)");
    }
    return index;
}

ProjectFacts FactsIn(const Profile& profile) {
    return {win32::Utf8FromGbk(profile.Text("GCBH")), win32::Utf8FromGbk(profile.Text("GCMC")),
            profile.Number("GCBZ", "0"), profile.Number("GCSJ", "1") <= 0};
}

ProjectFacts Changed(ProjectFacts facts, const ProjectChange& change) {
    facts.number = change.number.value_or(facts.number);
    facts.name = change.name.value_or(facts.name);
    facts.code = change.code.value_or(facts.code);
    facts.checked = change.checked.value_or(facts.checked);
    return facts;
}

void Set(Profile& profile, const ProjectChange& change) {
    if (change.number) {
        profile.Set("GCBH", CheckedProjectNumber(*change.number));
    }
    if (change.name) {
        profile.Set("GCMC", CheckedProjectName(*change.name));
    }
    if (change.code) {
        profile.Set("GCBZ", std::to_string(*change.code));
    }
    if (change.checked) {
        profile.Set("GCSJ", *change.checked ? "0" : "1");
    }
}
}  // namespace

Project ReadProject() {
    const Profile profile(ProfilePath());
    const int index = IndexIn(profile);
    return {index, FactsIn(profile), ProjectRow(index).Facts()};
}

void ChangeProject(const ProjectChange& change) {
    const win32::FileLock lock(ProfilePath());  // marks of layers stand in the profile, too
    if (!lock.Fault().empty()) {
        throw Failure(lock.Fault());
    }
    Profile profile(ProfilePath());
    const int index = IndexIn(profile);
    Set(profile, change);
    ProjectRow row(index);
    if (!row.Facts()) {
        throw Failure("table x_GongCheng has no row of the project " + std::to_string(index) +
                      " that " + profile.FilePath() + " names (key GCSY)");
    }
    const ProjectFacts before = *row.Facts();
    row.Write(Changed(before, change));
    try {
        profile.Save();
    } catch (const Failure&) {
        row.Write(before);  // when that fails too, its reason is the one to hear: both are changed
        throw;
    }
}

}  // namespace lab
