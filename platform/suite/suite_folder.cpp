#include "platform/suite/suite_folder.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/suite/init_string.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/profile_text.h"
#include "platform/win32/windows_path.h"

namespace {

// Sizes of the callers' buffers, terminating zero counted.
constexpr std::size_t kProfileBuffer = 256;
constexpr std::size_t kFolderBuffer = 260;
constexpr std::size_t kDatabaseBuffer = 1024;

/// What the operations answer. GBK.
struct Suite {
    std::string projectProfile;
    std::string settingsProfile;
    std::string markProfile;
    std::string registeredFolder;
    std::string database;
};

std::optional<Suite>& TheSuite() {
    static std::optional<Suite> suite;
    return suite;
}

constexpr char kSection[] = "Suite";
constexpr char kDatabaseKey[] = "Database";

struct PathKey {
    const char* name;
    std::string Suite::*value;
    std::size_t bufferSize;
};
constexpr std::array kPathKeys = {
    PathKey{"ProjectProfile", &Suite::projectProfile, kProfileBuffer},
    PathKey{"SettingsProfile", &Suite::settingsProfile, kProfileBuffer},
    PathKey{"MarkProfile", &Suite::markProfile, kProfileBuffer},
    PathKey{"RegisteredFolder", &Suite::registeredFolder, kFolderBuffer},
};

/// Reads the suite.ini of a folder. Errors name the file.
class SuiteReader {
public:
    explicit SuiteReader(std::string& error) : error_(error) {}

    bool Read(const std::string& folder, Suite& suite) {
        std::error_code code;
        const auto absolute = std::filesystem::absolute(folder, code).lexically_normal();
        if (code) {
            return Refuse("the folder \"" + folder + "\"", code.message());
        }
        if (!win32::WindowsPath(absolute.string(), windowsFolder_)) {
            return Refuse(absolute.string(), "the path cannot be written in GBK");
        }
        file_ = win32::FileSystemPath(windowsFolder_ + "\\suite.ini");
        std::string content;
        if (!win32::ReadFileWhole(file_, content, error_)) {
            return false;
        }
        const win32::ProfileText profile(content);
        for (const PathKey& key : kPathKeys) {
            if (!ReadPath(profile, key, suite.*key.value)) {
                return false;
            }
        }
        return ReadDatabase(profile, suite.database);
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

    bool ReadPath(const win32::ProfileText& profile, const PathKey& key, std::string& path) {
        std::string value;
        if (!ReadKey(profile, key.name, value)) {
            return false;
        }
        path = suite::AbsolutePath(windowsFolder_, value);
        return FitsBuffer(key.name, path, key.bufferSize);
    }

    bool ReadDatabase(const win32::ProfileText& profile, std::string& database) {
        std::string value;
        if (!ReadKey(profile, kDatabaseKey, value)) {
            return false;
        }
        database = suite::WithAbsoluteDataSource(windowsFolder_, value);
        return FitsBuffer(kDatabaseKey, database, kDatabaseBuffer);
    }

    bool FitsBuffer(const std::string& key, const std::string& text, std::size_t bufferSize) {
        if (text.size() < bufferSize) {
            return true;
        }
        return Refuse(file_, key + " is longer than " + std::to_string(bufferSize - 1) +
                                 " bytes: " + win32::Utf8FromGbk(text));
    }

    std::string windowsFolder_;
    std::string file_;
    std::string& error_;
};

/// Copies the text of the open suite folder, which is known to fit; an empty one without it.
int Answer(char* buffer, std::string Suite::*text) {
    const std::string answer = TheSuite() ? *TheSuite().*text : "";
    std::memcpy(buffer, answer.c_str(), answer.size() + 1);
    return TheSuite() ? 1 : 0;
}

}  // namespace

namespace suite {

bool OpenFolder(const std::string& folder, std::string& error) {
    Suite opened;
    if (!SuiteReader(error).Read(folder, opened)) {
        return false;
    }
    TheSuite() = opened;
    return true;
}

bool CheckFolder(const std::string& folder, std::string& error) {
    Suite unused;
    return SuiteReader(error).Read(folder, unused);
}

void CloseFolder() {
    TheSuite().reset();
}

}  // namespace suite

void GetProjectProfilePath(char* buffer) {
    Answer(buffer, &Suite::projectProfile);
}
void GetSettingsProfilePath(char* buffer) {
    Answer(buffer, &Suite::settingsProfile);
}
void GetMarkProfilePath(char* buffer) {
    Answer(buffer, &Suite::markProfile);
}
int GetDatabaseInitString(char* buffer) {
    return Answer(buffer, &Suite::database);
}
int GetRegisteredFolder(char* buffer) {
    return Answer(buffer, &Suite::registeredFolder);
}
