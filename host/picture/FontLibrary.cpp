#include "host/picture/FontLibrary.h"

#include "platform/ed/file_search.h"

namespace picture {

namespace {
constexpr const char* kDefaultFont = "WenQuanYi Zen Hei";
}  // namespace

std::string FontLibrary::installedFont(const std::string& fontFile) const {
    std::string font = ed::MappedFont(fontFile.c_str());
    return font.empty() ? kDefaultFont : font;
}

}  // namespace picture
