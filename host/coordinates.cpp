#include "host/coordinates.h"

#include <string_view>
#include <vector>

#include "platform/win32/number_text.h"

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
}  // namespace

std::optional<AcGePoint3d> ParsePoint(const std::string& text) {
    const std::vector<std::string_view> parts = SplitAtCommas(text);
    if (parts.size() != 2) {
        return std::nullopt;
    }
    const std::optional<double> x = win32::ParseNumber(parts[0]);
    const std::optional<double> y = win32::ParseNumber(parts[1]);
    return x && y ? std::optional(AcGePoint3d(*x, *y, 0.0)) : std::nullopt;
}

std::optional<AcDbIntArray> ParseIndexes(const std::string& text) {
    AcDbIntArray indexes;
    for (const std::string_view part : SplitAtCommas(text)) {
        const std::optional<int> index = win32::ParseInteger(part);
        if (!index || *index < 0) {
            return std::nullopt;
        }
        indexes.append(*index);
    }
    return indexes;
}

}  // namespace host
