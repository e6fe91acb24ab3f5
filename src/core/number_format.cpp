#include "src/core/number_format.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace {

// The longest double in fixed notation with 15 decimals: sign, 309 digits, point.
constexpr std::size_t kFixedBufferSize = std::numeric_limits<double>::max_exponent10 + 20;

struct FixedText {
    char bytes[kFixedBufferSize];
    std::size_t length = 0;

    FixedText(double value, int decimals) {
        length = static_cast<std::size_t>(std::to_chars(bytes, bytes + kFixedBufferSize, value,
                                                        std::chars_format::fixed, decimals)
                                              .ptr -
                                          bytes);
    }
};

// Values above the bound are written with so many decimals; the first row that fits counts.
struct DecimalsRow {
    double above;
    int decimals;
};
constexpr DecimalsRow kDiameterRows[] = {{99.999, 0}, {9.999, 1}, {0.999, 2}, {-0.0001, 3}};
constexpr DecimalsRow kCoefficientRows[] = {{999.9, 0}, {99.999, 1}, {9.999, 2}, {-0.0001, 3}};

constexpr double kPowersOfTen[] = {1.0, 10.0, 100.0, 1000.0, 10000.0};

/// The rounded value without the way through text, which is many times as long; nothing where
/// that way could come to another result. Scaling is off by far less than the distance kept from
/// the halves, and dividing one exact number by another gives the double nearest to the printed
/// digits.
std::optional<double> RoundAwayFromHalves(double value, int decimals) {
    constexpr double kLargest = 1e12;
    constexpr double kNearHalf = 0.499;
    if (decimals < 0 || decimals >= static_cast<int>(std::size(kPowersOfTen))) {
        return std::nullopt;
    }
    const double power = kPowersOfTen[decimals];
    const double scaled = value * power;
    const double whole = std::nearbyint(scaled);
    if (!(std::abs(scaled) < kLargest) || std::abs(scaled - whole) > kNearHalf) {
        return std::nullopt;
    }
    return whole / power;
}

}  // namespace

std::string FormatFixed(double value, int decimals) {
    const FixedText text(value, decimals);
    return {text.bytes, text.length};
}

double RoundAsPrinted(double value, int decimals) {
    if (const std::optional<double> rounded = RoundAwayFromHalves(value, decimals)) {
        return *rounded;
    }
    const FixedText text(value, decimals);
    double read = value;
    std::from_chars(text.bytes, text.bytes + text.length, read);
    return read;
}

float Round3(double value) {
    return static_cast<float>(RoundAsPrinted(value, 3));
}

double WidenFloat(float value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    double wide = 0.0;
    std::from_chars(digits, end, wide);
    return wide;
}

std::string FormatResultValue(double value, ResultValueMode mode) {
    for (const DecimalsRow& row : mode == kDiameterValue ? kDiameterRows : kCoefficientRows) {
        if (value > row.above) {
            return FormatFixed(value, row.decimals);
        }
    }
    return {};
}

std::string FormatSizeLabel(double size) {
    std::string label = FormatFixed(std::trunc(size * 10000.0 + 0.5) / 10000.0, 4);
    label.erase(label.find_last_not_of('0') + 1);
    if (label.back() == '.') {
        label.pop_back();
    }
    return label;
}
