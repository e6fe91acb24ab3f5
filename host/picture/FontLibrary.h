#pragma once

#include <string>

namespace picture {

/// The fonts that texts are drawn with: what a style's font file name stands for here.
class FontLibrary {
public:
    /// Family of the installed font that takes the place of a shape font: the font mapping's, else
    /// one that has double-byte characters, or one whose single-byte characters are all as wide.
    std::string installedFont(const std::string& fontFile, bool fullWidth) const;
};

}  // namespace picture
