#include "host/coordinates.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

namespace host {

namespace {
std::vector<std::string_view> SplitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',', start)) {
        parts.push_back(text.substr(start, comma - start));
        start = comma + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

template <class Number>
std::optional<Number> Parse(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::optional<double> ParseFinite(std::string_view text) {
    const std::optional<double> number = Parse<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}
}  // namespace

std::optional<double> ParseNumber(const std::string& text) {
    return ParseFinite(text);
}

std::optional<AcGePoint3d> ParsePoint(const std::string& text) {
    const std::vector<std::string_view> parts = SplitAtCommas(text);
    if (parts.size() != 2) {
        return std::nullopt;
    }
    const std::optional<double> x = ParseFinite(parts[0]);
    const std::optional<double> y = ParseFinite(parts[1]);
    return x && y ? std::optional(AcGePoint3d(*x, *y, 0.0)) : std::nullopt;
}

std::optional<AcDbIntArray> ParseIndexes(const std::string& text) {
    AcDbIntArray indexes;
    for (const std::string_view part : SplitAtCommas(text)) {
        const std::optional<int> index = Parse<int>(part);
        if (!index || *index < 0) {
            return std::nullopt;
        }
        indexes.append(*index);
    }
    return indexes;
}

}  // namespace host
