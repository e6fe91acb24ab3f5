#include "apps/grdx/numbers.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace console {

namespace {
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

std::optional<double> StoredNumber(double number) {
    if (std::abs(number) > std::numeric_limits<float>::max()) {
        return std::nullopt;
    }
    const auto stored = static_cast<float>(number);
    if (stored == 0.0F && number != 0.0) {
        return std::nullopt;
    }
    char shortest[32];
    const auto written = std::to_chars(std::begin(shortest), std::end(shortest), stored);
    return ParseNumber({shortest, static_cast<std::size_t>(written.ptr - shortest)});
}

bool IsDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return false;
    }
    const std::optional<int> year = ParseInteger(text.substr(0, 4));
    const std::optional<int> month = ParseInteger(text.substr(5, 2));
    const std::optional<int> day = ParseInteger(text.substr(8, 2));
    return year && month && day && *year >= 0 && *month > 0 && *day > 0 &&
           std::chrono::year_month_day(std::chrono::year(*year),
                                       std::chrono::month(static_cast<unsigned>(*month)),
                                       std::chrono::day(static_cast<unsigned>(*day)))
               .ok();
}

}  // namespace console
