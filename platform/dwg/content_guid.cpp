#include "platform/dwg/content_guid.h"

#include <cstdio>

namespace dwg {

std::string GuidOf(std::uint64_t number) {
    const std::uint64_t other = (number ^ number >> 31U) * 0xBF58476D1CE4E5B9;
    const auto part = [](std::uint64_t value, unsigned from) {
        return static_cast<unsigned>(value >> from & 0xFFFFU);
    };
    char text[48];
    std::snprintf(text, sizeof text, "{%04X%04X-%04X-%04X-%04X-%04X%04X%04X}", part(number, 48),
                  part(number, 32), part(number, 16), part(number, 0), part(other, 48),
                  part(other, 32), part(other, 16), part(other, 0));
    return text;
}

}  // namespace dwg
