#include "apps/grdx/suite_access.h"

#include <cstdlib>

#include "apps/grdx/Failure.h"
#include "platform/suite/orvik8.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_fault.h"
#include "platform/win32/private_profile.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace {
constexpr std::size_t kProfilePathSize = 256;
constexpr const char* kSection = "Project";

std::string ProjectText(const char* key) {
    return win32::Utf8FromGbk(win32::TextInProfile(ProjectProfile(), kSection, key));
}
}  // namespace

void OpenSuite(const std::string& folder) {
    win32::SetFileFaultListener([](const std::string& text) { throw Failure(text); });
    std::string error;
    if (!suite::OpenFolder(folder, error)) {
        throw Failure(error);
    }
}

std::string ProjectProfile() {
    char path[kProfilePathSize] = "";
    GetProjectProfilePath(path);
    return path;
}

std::string MarkProfile() {
    char path[kProfilePathSize] = "";
    GetMarkProfilePath(path);
    return path;
}

lab::ProjectEntry CurrentProject() {
    lab::ProjectEntry project;
    const std::string profile = ProjectProfile();
    project.index = static_cast<int>(GetPrivateProfileInt(kSection, "GCSY", -1, profile.c_str()));
    if (project.index < 0) {
        throw Failure(win32::FileSystemPath(profile) + " names no project (key GCSY)");
    }
    project.number = ProjectText("GCBH");
    project.name = ProjectText("GCMC");
    project.code = std::atoi(ProjectText("GCBZ").c_str());
    return project;
}

}  // namespace console
