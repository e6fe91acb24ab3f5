#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/picture/ShapeFontFile.h"
#include "host/picture/plane.h"
#include "host/picture/text_characters.h"

namespace picture {

/// A character as strokes, in heights of capitals from its left end on the baseline.
struct StrokeGlyph {
    std::vector<std::vector<Point>> strokes;
    double advance = 1.0;
};

/// A shape font or big font that texts are stroked with.
class ShapeFont {
public:
    explicit ShapeFont(ShapeFontFile file);

    /// The strokes of a character; null when the font has none for it, or damaged ones.
    const StrokeGlyph* glyph(const TextCharacter& character);

    /// What was found wrong with a character, the first time; empty for nothing new.
    std::string takeFault();

private:
    int numberOf(const TextCharacter& character) const;
    std::optional<StrokeGlyph> read(int number);
    double measuredHeight() const;

    ShapeFontFile file_;
    double height_ = 1.0;
    std::unordered_map<int, std::optional<StrokeGlyph>> glyphs_;
    bool faultTold_ = false;
    std::string fault_;
};

}  // namespace picture
