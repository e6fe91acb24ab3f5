#include "platform/win32/number_text.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <system_error>

namespace win32 {
namespace {

/// Enough for every number of 64 bits.
constexpr std::size_t kRoom = 32;

template <class Number>
std::optional<Number> Parse(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const std::optional<double> number = Parse<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<int> ParseInteger(std::string_view text) {
    return Parse<int>(text);
}

std::string ShortestText(double number) {
    char text[kRoom];
    return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

double ShortestDouble(float number) {
    char text[kRoom];
    const char* const end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    double wide = 0.0;
    std::from_chars(text, end, wide);
    return wide;
}

}  // namespace win32
