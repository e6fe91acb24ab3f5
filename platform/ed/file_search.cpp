#include "platform/ed/file_search.h"

#include <cstring>
#include <filesystem>
#include <unordered_map>
#include <utility>

#include "platform/ed/adesk_results.h"
#include "platform/win32/code_page.h"
#include "platform/win32/folder_listings.h"
#include "platform/win32/gbk_case.h"
#include "platform/win32/private_profile.h"
#include "platform/win32/windows_path.h"

namespace {
constexpr std::size_t kResultSize = 512;

struct SearchState {
    std::vector<std::string> folders;
    std::string fontProfile;
    /// What the profile answered, so that a run of sheets reads it once for each font.
    std::unordered_map<std::string, std::string> knownFonts;
};

SearchState& State() {
    static SearchState state;
    return state;
}

bool IsFile(const std::string& windowsPath) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(win32::FileSystemPath(windowsPath), ignored);
}

/// False when the folder has no entry of that name, in whatever case.
bool MayHold(const std::string& folder, const std::string& name) {
    return !win32::FolderListings::Get().Find(win32::FileSystemPath(folder), name).empty();
}

bool HasFolder(const std::string& name) {
    return win32::FindChar(name, '\\') != std::string::npos ||
           win32::FindChar(name, '/') != std::string::npos;
}

bool EndsWithSeparator(const std::string& folder) {
    return !folder.empty() && win32::FindLastChar(folder, '\\') == folder.size() - 1;
}

bool IsShapeFont(const std::string& name) {
    constexpr std::size_t kExtensionLength = 4;
    return name.size() > kExtensionLength &&
           win32::EqualNoCase(name.substr(name.size() - kExtensionLength), ".shx");
}

/// Where the name was found, as a Windows path; empty for nowhere.
std::string Find(const std::string& name) {
    if (HasFolder(name)) {
        return IsFile(name) ? name : std::string();
    }
    for (const std::string& folder : State().folders) {
        // Fonts that are mapped are in none of them, and are looked for with every sheet.
        if (!MayHold(folder, name)) {
            continue;
        }
        std::string path = folder;
        path += EndsWithSeparator(folder) ? "" : "\\";
        path += name;
        if (IsFile(path)) {
            return path;
        }
    }
    return IsShapeFont(name) && !ed::MappedFont(name.c_str()).empty() ? name : std::string();
}
}  // namespace

int acedFindFile(const char* fileName, char* result) {
    if (fileName == nullptr || *fileName == '\0' || result == nullptr) {
        return RTERROR;
    }
    const std::string found = Find(fileName);
    if (found.empty() || found.size() >= kResultSize) {
        return RTERROR;
    }
    std::memcpy(result, found.c_str(), found.size() + 1);
    return RTNORM;
}

void ed::SetSearchFolders(std::vector<std::string> folders) {
    State().folders = std::move(folders);
}

void ed::LoadFontMapping(const std::string& iniPath) {
    State().fontProfile = iniPath;
    State().knownFonts.clear();
}

std::string ed::MappedFont(const char* shapeFont) {
    SearchState& state = State();
    const auto known = state.knownFonts.find(shapeFont);
    if (known != state.knownFonts.end()) {
        return known->second;
    }
    std::string font;
    if (!state.fontProfile.empty()) {
        font = win32::TextInProfile(state.fontProfile, "Fonts", shapeFont);
    }
    return state.knownFonts[shapeFont] = font;
}
