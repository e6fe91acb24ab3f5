#pragma once

#include <cstdint>

namespace picture {

/// Red, green and blue, 0 to 255.
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// What a picture is drawn on: white paper, or the dark screen of a drawing view.
enum class Background { kLight, kDark };

/// What a colour index (1 to 255) looks like: index 7 is black on a light background and white on a
/// dark one. Indices outside the range count as 7.
Rgb ColorOf(int colorIndex, Background background);

}  // namespace picture
