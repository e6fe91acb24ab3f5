#include "platform/suite/outside_places.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "platform/oledb/InitString.h"
#include "platform/win32/ProfileText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_place.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/gbk_literal.h"
#include "platform/win32/windows_path.h"

namespace suite {
namespace {

using oledb::InitString;

bool IsLink(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// The links that stand in a folder, sorted by name.
std::vector<std::string> LinksIn(const std::string& folder) {
    std::vector<std::string> links;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const std::string path = folder + "/" + entry->d_name;
        if (entry->d_type == DT_LNK || (entry->d_type == DT_UNKNOWN && IsLink(path))) {
            links.push_back(path);
        }
    }
    std::sort(links.begin(), links.end());
    return links;
}

std::string ProjectNumber(const std::string& profile) {
    std::string number;
    win32::ProfileText(profile).Find("Project", "GCBH", number);
    return number;
}

bool IsPassword(const std::string& keyword) {
    return InitString::SameKeyword(keyword, "Pwd") || InitString::SameKeyword(keyword, "Password");
}

/// What names a server, for people.
std::string ServerText(const InitString& database) {
    std::string text;
    for (const InitString::Entry& entry : database.Entries()) {
        text += (text.empty() ? "" : ";") + entry.keyword + "=" +
                (IsPassword(entry.keyword) ? "***" : entry.value);
    }
    return text;
}

class Collector {
public:
    Collector(const std::string& root, const SuitePaths& paths) : root_(root), paths_(paths) {}

    std::vector<OutsidePlace> Collect() {
        Add("suite.ini", Path(paths_.folder + "\\suite.ini"));
        Add("ProjectProfile", Path(paths_.projectProfile));
        Add("SettingsProfile", Path(paths_.settingsProfile));
        Add("MarkProfile", Path(paths_.markProfile));
        AddDatabase();
        const std::string registered = Path(paths_.registeredFolder);
        inside_ = IsKnown(win32::RealPath(registered));
        AddFolder(paths_.registeredFolder + "\\Support");
        AddSheets();
        return std::move(places_);
    }

private:
    static std::string Path(const std::string& windowsPath) {
        return win32::FileSystemPath(windowsPath);
    }

    bool IsKnown(const std::string& real) const {
        return win32::IsWithin(root_, real) ||
               std::any_of(places_.begin(), places_.end(), [&](const OutsidePlace& place) {
                   return win32::IsWithin(place.where, real);
               });
    }

    void Add(const std::string& what, const std::string& path) {
        const std::string real = win32::RealPath(path);
        if (!IsKnown(real)) {
            places_.push_back({what, real});
        }
    }

    /// By the key that leads there, else by the link's path in the folder.
    void AddOfRegistered(const std::string& path) {
        const std::string folder = Path(paths_.folder) + "/";
        const std::string shown = path.starts_with(folder) ? path.substr(folder.size()) : path;
        Add(inside_ ? shown : "RegisteredFolder", path);
    }

    void AddFolder(const std::string& windowsPath) {
        const std::string folder = Path(windowsPath);
        AddOfRegistered(folder);
        for (const std::string& link : LinksIn(folder)) {
            AddOfRegistered(link);
        }
    }

    void AddSheets() {
        std::string profile;
        std::string unread;
        win32::ReadFileWhole(Path(paths_.projectProfile), profile, unread);
        std::string folder = paths_.registeredFolder + "\\output";
        AddOfRegistered(Path(folder));
        folder += "\\" + ProjectNumber(profile);
        AddOfRegistered(Path(folder));
        AddFolder(folder + "\\" + "室内曲线"_gbk);
    }

    void AddDatabase() {
        InitString database;
        std::string fault;
        const bool readable = database.Parse(win32::Utf8FromGbk(paths_.database), fault);
        const std::string* const provider = database.Find("Provider");
        const std::string* const source = database.Find("Data Source");
        if (!readable || provider == nullptr || !InitString::SameKeyword(*provider, "SQLite")) {
            places_.push_back({"Database", readable ? ServerText(database) : fault});
            return;
        }
        if (source == nullptr || source->empty()) {
            return;
        }
        const std::string path = Path(win32::GbkFromUtf8(*source));
        Add("Database", path);
        // The library puts these beside the real file.
        for (const char* const log : {"-wal", "-shm", "-journal"}) {
            const std::string beside = win32::RealPath(path) + log;
            if (IsLink(beside)) {
                Add("Database", beside);
            }
        }
    }

    const std::string& root_;
    const SuitePaths& paths_;
    bool inside_ = true;  ///< the registered folder
    std::vector<OutsidePlace> places_;
};

/// Bytes of the UTF-8 character that starts at `pos`.
std::size_t LengthOfCharacter(const std::string& text, std::size_t pos) {
    std::size_t end = pos + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        ++end;
    }
    return end - pos;
}

/// Characters that GBK lacks are no letters of our users; among them are those that turn the
/// direction of writing.
bool IsShown(const std::string& character) {
    std::string unused;
    const auto first = static_cast<unsigned char>(character.front());
    return first >= 0x20 && first != 0x7F && win32::TryGbkFromUtf8(character, unused);
}

std::string ShownText(const std::string& utf8) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string shown;
    for (std::size_t pos = 0; pos < utf8.size();) {
        const std::string character = utf8.substr(pos, LengthOfCharacter(utf8, pos));
        pos += character.size();
        if (IsShown(character)) {
            shown += character;
            continue;
        }
        for (const char c : character) {
            const auto byte = static_cast<unsigned char>(c);
            shown += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
    return shown;
}

/// By whole characters, and as the file system would see it.
bool IsOneName(const std::string& gbk) {
    return gbk != "." && gbk != ".." && win32::FindChar(gbk, '\\') == std::string::npos &&
           win32::Utf8FromGbk(gbk).find('/') == std::string::npos;
}

}  // namespace

std::vector<OutsidePlace> FindOutsidePlaces(const std::string& root, const SuitePaths& paths) {
    return Collector(root, paths).Collect();
}

std::string DescribePlaces(const std::vector<OutsidePlace>& places, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(places.size(), most); ++i) {
        text +=
            (i == 0 ? "" : "\n") + ShownText(places[i].what) + ": " + ShownText(places[i].where);
    }
    return places.size() <= most ? text
                                 : text + "\n+ " + std::to_string(places.size() - most) + " …";
}

std::string ProjectNumberFault(const SuitePaths& paths) {
    const std::string path = win32::FileSystemPath(paths.projectProfile);
    std::string profile;
    std::string error;
    bool missing = false;
    if (!win32::ReadFileWhole(path, profile, error, &missing)) {
        return missing ? "" : error;
    }
    const std::string number = ProjectNumber(profile);
    return IsOneName(number)
               ? ""
               : path + ": the project number \"" + ShownText(win32::Utf8FromGbk(number)) +
                     "\" (key GCBH) is not the name of one folder";
}

}  // namespace suite
