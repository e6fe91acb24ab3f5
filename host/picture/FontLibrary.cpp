#include "host/picture/FontLibrary.h"

#include "platform/ed/file_search.h"

namespace picture {

namespace {
constexpr const char* kFullWidthFont = "WenQuanYi Zen Hei";
constexpr const char* kLatinFont = "WenQuanYi Zen Hei Mono";
}  // namespace

std::string FontLibrary::installedFont(const std::string& fontFile, bool fullWidth) const {
    std::string font = ed::MappedFont(fontFile.c_str());
    if (font.empty()) {
        font = fullWidth ? kFullWidthFont : kLatinFont;
    }
    return font;
}

}  // namespace picture
