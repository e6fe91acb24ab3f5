#include "lab/numbers.h"

#include <chrono>
#include <cmath>
#include <limits>

namespace lab {

std::optional<double> StoredNumber(double number) {
    if (std::abs(number) > std::numeric_limits<float>::max()) {
        return std::nullopt;
    }
    const auto stored = static_cast<float>(number);
    if (stored == 0.0F && number != 0.0) {
        return std::nullopt;
    }
    return win32::ShortestDouble(stored);
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

}  // namespace lab
