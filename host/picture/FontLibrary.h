#pragma once

#include <string>

namespace picture {

/// The fonts that texts are drawn with: what a style's font file name stands for here.
class FontLibrary {
public:
    /// Family of the installed font that takes the place of a shape font: the font mapping's, else
    /// one that has Chinese.
    std::string installedFont(const std::string& fontFile) const;
};

}  // namespace picture
