#include "host/picture/FontLibrary.h"

#include <filesystem>
#include <utility>

#include "platform/ed/adesk_results.h"
#include "platform/ed/file_search.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/gbk_case.h"
#include "platform/win32/windows_path.h"

namespace picture {

namespace {

constexpr const char* kFullWidthFont = "WenQuanYi Zen Hei";
constexpr const char* kLatinFont = "WenQuanYi Zen Hei Mono";

/// The name with ".shx" when it has no ending; empty for fonts of other sorts.
std::string ShapeFileName(const std::string& fontFile) {
    const std::size_t point = win32::FindLastChar(fontFile, '.');
    if (point == std::string::npos) {
        return fontFile.empty() ? fontFile : fontFile + ".shx";
    }
    return win32::EqualNoCase(fontFile.substr(point), ".shx") ? fontFile : std::string();
}

/// Path of the file that the search finds; empty when it only knows an installed font for it.
std::string FoundFile(const std::string& name) {
    char found[512];
    if (name.empty() || acedFindFile(name.c_str(), found) != RTNORM) {
        return {};
    }
    std::string path = win32::FileSystemPath(found);
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) ? path : std::string();
}

}  // namespace

ShapeFont* FontLibrary::shapeFont(const std::string& fontFile) {
    const auto [place, isNew] = shapeFonts_.try_emplace(fontFile);
    if (isNew) {
        place->second = open(fontFile);
    }
    return place->second.font.get();
}

FontLibrary::Entry FontLibrary::open(const std::string& fontFile) {
    Entry entry{FoundFile(ShapeFileName(fontFile)), nullptr};
    if (entry.path.empty()) {
        return entry;
    }
    std::string content;
    std::string error;
    ShapeFontFile file;
    if (!win32::ReadFileWhole(entry.path, content, error)) {
        faults_.push_back(error);
    } else if (!file.read(std::move(content), error)) {
        faults_.push_back(entry.path + ": " + error);
    } else {
        entry.font = std::make_unique<ShapeFont>(std::move(file));
    }
    return entry;
}

const std::string& FontLibrary::installedFont(const std::string& fontFile, bool fullWidth) {
    std::string& font = installed_[(fullWidth ? "2" : "1") + fontFile];
    if (font.empty()) {
        font = win32::Utf8FromGbk(ed::MappedFont(fontFile.c_str()));
    }
    if (font.empty()) {
        font = fullWidth ? kFullWidthFont : kLatinFont;
    }
    return font;
}

std::vector<std::string> FontLibrary::takeFaults() {
    for (auto& [name, entry] : shapeFonts_) {
        if (entry.font != nullptr) {
            if (const std::string fault = entry.font->takeFault(); !fault.empty()) {
                faults_.push_back(entry.path + ": " + fault);
            }
        }
    }
    return std::exchange(faults_, {});
}

}  // namespace picture
