#include "host/picture/color_index.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace picture {
namespace {

constexpr int kForeground = 7;
constexpr std::array<Rgb, 10> kNamed{{{0, 0, 0},
                                      {255, 0, 0},
                                      {255, 255, 0},
                                      {0, 255, 0},
                                      {0, 255, 255},
                                      {0, 0, 255},
                                      {255, 0, 255},
                                      {0, 0, 0},
                                      {128, 128, 128},
                                      {192, 192, 192}}};
constexpr std::array<std::uint8_t, 6> kGreys{51, 91, 132, 173, 214, 255};

/// Indices 10 to 249: 24 hues, five brightnesses each, every one full and half saturated.
Rgb WheelColor(int index) {
    constexpr std::array<double, 5> kBrightness{1.0, 0.65, 0.5, 0.3, 0.15};
    const int hueStep = (index - 10) / 10;
    const double hue = hueStep / 4.0;  // in sixths of the circle
    const double value = kBrightness[static_cast<std::size_t>(index % 10 / 2)];
    const double saturation = index % 2 == 0 ? 1.0 : 0.5;
    const auto channel = [&](double shift) {
        const double k = std::fmod(shift + hue, 6.0);
        const double dip = std::max(0.0, std::min({k, 4.0 - k, 1.0}));
        return static_cast<std::uint8_t>(std::floor(255.0 * value * (1.0 - saturation * dip)));
    };
    return {channel(5.0), channel(3.0), channel(1.0)};
}

}  // namespace

Rgb ColorOf(int colorIndex, Background background) {
    if (colorIndex < 1 || colorIndex > 255 || colorIndex == kForeground) {
        return background == Background::kLight ? Rgb{0, 0, 0} : Rgb{255, 255, 255};
    }
    if (colorIndex < 10) {
        return kNamed[static_cast<std::size_t>(colorIndex)];
    }
    if (colorIndex >= 250) {
        const std::uint8_t grey = kGreys[static_cast<std::size_t>(colorIndex - 250)];
        return {grey, grey, grey};
    }
    return WheelColor(colorIndex);
}

}  // namespace picture
