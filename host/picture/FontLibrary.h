#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/picture/ShapeFont.h"

namespace picture {

/// The fonts that texts are drawn with: what a style's font file name stands for here. What it has
/// found it keeps; a program that changes its search path or font mapping starts a new one.
class FontLibrary {
public:
    /// The shape font or big font of a style: the file of that name on the search path, ".shx" when
    /// it has no ending. Null when there is none, it is of another sort or it is damaged.
    ShapeFont* shapeFont(const std::string& fontFile);

    /// Family of the installed font that takes the place of a shape font: the font mapping's, else
    /// one that has double-byte characters, or one whose single-byte characters are all as wide.
    const std::string& installedFont(const std::string& fontFile, bool fullWidth);

    /// What was found wrong with font files since the last call (UTF-8, path and place first); what
    /// they cannot draw is drawn with installed fonts.
    std::vector<std::string> takeFaults();

private:
    struct Entry {
        std::string path;  ///< of the file system; empty when there is no file
        std::unique_ptr<ShapeFont> font;
    };
    Entry open(const std::string& fontFile);

    std::unordered_map<std::string, Entry> shapeFonts_;       // by name
    std::unordered_map<std::string, std::string> installed_;  // by name, full width with a mark
    std::vector<std::string> faults_;
};

}  // namespace picture
