#include "platform/suite/suite_folder.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/suite/absolute_paths.h"
#include "platform/suite/agreement.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/ProfileText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_place.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace {

using suite::OutsidePlace;
using suite::SuitePaths;

// Sizes of the callers' buffers, terminating zero counted.
constexpr std::size_t kProfileBuffer = 256;
constexpr std::size_t kFolderBuffer = 260;
constexpr std::size_t kDatabaseBuffer = 1024;

struct Suite {
    std::string root;  ///< the folder's real path, UTF-8
    suite::SuitePaths paths;
};

std::optional<Suite>& TheSuite() {
    static std::optional<Suite> suite;
    return suite;
}

constexpr char kSection[] = "Suite";
constexpr char kDatabaseKey[] = "Database";

struct PathKey {
    const char* name;
    std::string SuitePaths::*value;
    std::size_t bufferSize;
};
constexpr std::array kPathKeys = {
    PathKey{"ProjectProfile", &SuitePaths::projectProfile, kProfileBuffer},
    PathKey{"SettingsProfile", &SuitePaths::settingsProfile, kProfileBuffer},
    PathKey{"MarkProfile", &SuitePaths::markProfile, kProfileBuffer},
    PathKey{"RegisteredFolder", &SuitePaths::registeredFolder, kFolderBuffer},
};

/// Reads the suite.ini of a folder. Errors name the file.
class SuiteReader {
public:
    explicit SuiteReader(std::string& error) : error_(error) {}

    bool Read(const std::string& folder, Suite& suite) {
        SuitePaths& paths = suite.paths;
        std::error_code code;
        const auto absolute = std::filesystem::absolute(folder, code).lexically_normal();
        if (code) {
            return Refuse("the folder \"" + folder + "\"", code.message());
        }
        if (!win32::WindowsPath(absolute.string(), paths.folder)) {
            return Refuse(absolute.string(), "the path cannot be written in GBK");
        }
        file_ = win32::FileSystemPath(paths.folder + "\\suite.ini");
        std::string content;
        if (!win32::ReadFileWhole(file_, content, error_)) {
            return false;
        }
        const win32::ProfileText profile(content);
        for (const PathKey& key : kPathKeys) {
            if (!ReadPath(profile, key, paths)) {
                return false;
            }
        }
        suite.root = win32::RealPath(absolute.string());
        return ReadDatabase(profile, paths);
    }

private:
    bool Refuse(const std::string& place, const std::string& reason) {
        error_ = place + ": " + reason;
        return false;
    }

    bool ReadKey(const win32::ProfileText& profile, const char* key, std::string& value) {
        if (!profile.Find(kSection, key, value) || value.empty()) {
            return Refuse(file_, std::string("section [") + kSection + "] has no " + key);
        }
        return true;
    }

    bool ReadPath(const win32::ProfileText& profile, const PathKey& key, SuitePaths& paths) {
        std::string value;
        if (!ReadKey(profile, key.name, value)) {
            return false;
        }
        paths.*key.value = suite::AbsolutePath(paths.folder, value);
        return FitsBuffer(key.name, paths.*key.value, key.bufferSize);
    }

    bool ReadDatabase(const win32::ProfileText& profile, SuitePaths& paths) {
        std::string value;
        if (!ReadKey(profile, kDatabaseKey, value)) {
            return false;
        }
        paths.database = suite::WithAbsoluteDataSource(paths.folder, value);
        // Its text is not told: there may be a password in it.
        return paths.database.size() < kDatabaseBuffer ||
               Refuse(file_, std::string(kDatabaseKey) + " is longer than " +
                                 std::to_string(kDatabaseBuffer - 1) + " bytes");
    }

    bool FitsBuffer(const std::string& key, const std::string& text, std::size_t bufferSize) {
        if (text.size() < bufferSize) {
            return true;
        }
        return Refuse(file_, key + " is longer than " + std::to_string(bufferSize - 1) +
                                 " bytes: " + win32::Utf8FromGbk(text));
    }

    std::string file_;
    std::string& error_;
};

/// Copies the text of the open suite folder, which is known to fit; an empty one without it.
int Answer(char* buffer, std::string SuitePaths::*text) {
    const std::string answer = TheSuite() ? TheSuite()->paths.*text : "";
    std::memcpy(buffer, answer.c_str(), answer.size() + 1);
    return TheSuite() ? 1 : 0;
}

bool Read(const std::string& folder, Suite& suite, std::string& error) {
    if (!SuiteReader(error).Read(folder, suite)) {
        return false;
    }
    const std::string fault = suite::ProjectNumberFault(suite.paths);
    if (!fault.empty()) {
        error = fault;
    }
    return fault.empty();
}

/// Sets the bounds of writing when the user has agreed to all that the suite leads to.
bool Admit(const Suite& suite, std::string& error) {
    const std::vector<OutsidePlace> places = FindOutsidePlaces(suite.root, suite.paths);
    const std::vector<OutsidePlace> notAgreed = suite::NotAgreed(suite.root, places);
    if (!notAgreed.empty()) {
        error = suite.root +
                ": the suite folder leads to what lies outside of it, and nobody has agreed to "
                "that; called once with --trust, grdx uses it:\n" +
                DescribePlaces(notAgreed, notAgreed.size());
        return false;
    }
    std::vector<std::string> bounds{suite.root};
    for (const OutsidePlace& place : places) {
        bounds.push_back(place.where);
    }
    win32::SetWriteBounds(std::move(bounds));
    return true;
}

}  // namespace

namespace suite {

bool OpenFolder(const std::string& folder, std::string& error) {
    Suite opened;
    if (!Read(folder, opened, error) || !Admit(opened, error)) {
        return false;
    }
    TheSuite() = opened;
    return true;
}

bool CheckFolder(const std::string& folder, std::vector<OutsidePlace>& notAgreed,
                 std::string& error) {
    Suite found;
    if (!Read(folder, found, error)) {
        return false;
    }
    notAgreed = NotAgreed(found.root, FindOutsidePlaces(found.root, found.paths));
    return true;
}

bool AgreeToFolder(const std::string& folder, const std::vector<OutsidePlace>& places,
                   std::string& error) {
    return Agree(win32::RealPath(folder), places, error);
}

bool CheckOpenFolder(std::string& error) {
    if (!TheSuite()) {
        return true;
    }
    error = ProjectNumberFault(TheSuite()->paths);
    return error.empty() && Admit(*TheSuite(), error);
}

void CloseFolder() {
    TheSuite().reset();
    win32::SetWriteBounds({});
}

}  // namespace suite

void GetProjectProfilePath(char* buffer) {
    Answer(buffer, &SuitePaths::projectProfile);
}
void GetSettingsProfilePath(char* buffer) {
    Answer(buffer, &SuitePaths::settingsProfile);
}
void GetMarkProfilePath(char* buffer) {
    Answer(buffer, &SuitePaths::markProfile);
}
int GetDatabaseInitString(char* buffer) {
    return Answer(buffer, &SuitePaths::database);
}
int GetRegisteredFolder(char* buffer) {
    return Answer(buffer, &SuitePaths::registeredFolder);
}
