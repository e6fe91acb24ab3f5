#include "platform/suite/agreement.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <system_error>

#include "platform/win32/file_lock.h"
#include "platform/win32/file_place.h"
#include "platform/win32/file_replace.h"

namespace suite {
namespace {

namespace fs = std::filesystem;

/// By the folders' real paths.
using Agreements = std::map<std::string, std::vector<OutsidePlace>>;

// A line each, its parts separated by tabs: a folder, and below it what is agreed to of it.
constexpr const char* kFolder = "folder";
constexpr const char* kPlace = "place";

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Empty when the user has no place for it, or the suite folder would hold it.
std::string FileFor(const std::string& root) {
    std::string folder = Variable("XDG_CONFIG_HOME");
    if (!folder.starts_with('/')) {
        folder = Variable("HOME").starts_with('/') ? Variable("HOME") + "/.config" : "";
    }
    const std::string file = folder.empty() ? "" : folder + "/GRDX/suite-folders";
    return file.empty() || win32::IsWithin(root, win32::RealPath(file)) ? "" : file;
}

std::string Escaped(const std::string& text) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && c != '%') {
            escaped += c;
        } else {
            escaped += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
    return escaped;
}

std::vector<std::string> PartsOf(const std::string& line) {
    std::vector<std::string> parts(1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        unsigned code = 0;
        if (line[i] == '\t') {
            parts.emplace_back();
        } else if (line[i] == '%' && i + 2 < line.size()) {
            std::from_chars(&line[i + 1], &line[i + 1] + 2, code, 16);
            parts.back() += static_cast<char>(code);
            i += 2;
        } else {
            parts.back() += line[i];
        }
    }
    return parts;
}

/// Lines of another form are left out.
Agreements Parse(const std::string& text) {
    Agreements agreements;
    std::vector<OutsidePlace>* places = nullptr;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> parts = PartsOf(line);
        if (parts.size() == 2 && parts[0] == kFolder) {
            places = &agreements[parts[1]];
        } else if (parts.size() == 3 && parts[0] == kPlace && places != nullptr) {
            places->push_back({parts[1], parts[2]});
        }
    }
    return agreements;
}

std::string TextOf(const Agreements& agreements) {
    std::string text;
    for (const auto& [folder, places] : agreements) {
        text += std::string(kFolder) + '\t' + Escaped(folder) + '\n';
        for (const OutsidePlace& place : places) {
            text += std::string(kPlace) + '\t' + Escaped(place.what) + '\t' + Escaped(place.where) +
                    '\n';
        }
    }
    return text;
}

}  // namespace

std::vector<OutsidePlace> NotAgreed(const std::string& root, std::vector<OutsidePlace> places) {
    std::string text;
    std::string unread;
    if (places.empty() || !win32::ReadFileWhole(FileFor(root), text, unread)) {
        return places;
    }
    const std::vector<OutsidePlace> agreed = Parse(text)[root];
    std::erase_if(places, [&](const OutsidePlace& place) {
        return std::find(agreed.begin(), agreed.end(), place) != agreed.end();
    });
    return places;
}

bool Agree(const std::string& root, const std::vector<OutsidePlace>& places, std::string& error) {
    const std::string file = FileFor(root);
    if (file.empty()) {
        error = root +
                ": there is no folder outside of it to remember an agreement in "
                "(XDG_CONFIG_HOME or HOME)";
        return false;
    }
    std::error_code fault;
    fs::create_directories(fs::path(file).parent_path(), fault);
    const win32::FileLock lock(file);
    if (!lock.Fault().empty()) {
        error = lock.Fault();
        return false;
    }
    std::string text;
    bool missing = false;
    if (!win32::ReadFileWhole(file, text, error, &missing) && !missing) {
        return false;
    }
    Agreements agreements = Parse(text);
    std::vector<OutsidePlace>& agreed = agreements[root];
    agreed.insert(agreed.end(), places.begin(), places.end());
    return win32::ReplaceFileWhole(file, TextOf(agreements), error, win32::Durability::kOnDisk);
}

}  // namespace suite
