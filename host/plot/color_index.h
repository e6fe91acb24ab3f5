#pragma once

#include <cstdint>

namespace plot {

/// Red, green and blue, 0 to 255.
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

/// What a colour index (1 to 255) looks like on white paper: index 7 is black there. Indices
/// outside the range are black too.
Rgb PaperColor(int colorIndex);

}  // namespace plot
