#include "platform/db/line_weight.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace db {

namespace {

constexpr std::uint8_t kByLayer = 29;
constexpr std::uint8_t kByBlock = 30;
constexpr std::uint8_t kDefault = 31;
constexpr std::array kWidths{
    AcDb::kLnWt000, AcDb::kLnWt005, AcDb::kLnWt009, AcDb::kLnWt013, AcDb::kLnWt015, AcDb::kLnWt018,
    AcDb::kLnWt020, AcDb::kLnWt025, AcDb::kLnWt030, AcDb::kLnWt035, AcDb::kLnWt040, AcDb::kLnWt050,
    AcDb::kLnWt053, AcDb::kLnWt060, AcDb::kLnWt070, AcDb::kLnWt080, AcDb::kLnWt090, AcDb::kLnWt100,
    AcDb::kLnWt106, AcDb::kLnWt120, AcDb::kLnWt140, AcDb::kLnWt158, AcDb::kLnWt200, AcDb::kLnWt211};

}  // namespace

AcDb::LineWeight LineWeightOf(std::uint8_t code) {
    if (code < kWidths.size()) {
        return kWidths[code];
    }
    return code == kByLayer   ? AcDb::kLnWtByLayer
           : code == kByBlock ? AcDb::kLnWtByBlock
                              : AcDb::kLnWtByLwDefault;
}

std::optional<std::uint8_t> CodeOf(AcDb::LineWeight weight) {
    switch (weight) {
        case AcDb::kLnWtByLayer:
            return kByLayer;
        case AcDb::kLnWtByBlock:
            return kByBlock;
        case AcDb::kLnWtByLwDefault:
            return kDefault;
        default:
            break;
    }
    const auto* const found = std::find(kWidths.begin(), kWidths.end(), weight);
    if (found == kWidths.end()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(std::distance(kWidths.begin(), found));
}

}  // namespace db
