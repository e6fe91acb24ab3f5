#include "lab/tables/cell_text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

#include "lab/numbers.h"
#include "platform/win32/code_page.h"

namespace lab {

namespace {
struct UnitName {
    Unit unit;
    std::string_view name;
};
/// The first name of a unit is the one told.
constexpr UnitName kUnits[] = {
    {Unit::kGram, "g"},          {Unit::kGram, "克"},         {Unit::kMillimetre, "mm"},
    {Unit::kMillimetre, "毫米"}, {Unit::kMetre, "m"},         {Unit::kMetre, "米"},
    {Unit::kPercent, "%"},       {Unit::kMinute, "min"},      {Unit::kMinute, "分"},
    {Unit::kCelsius, "°c"},      {Unit::kCelsius, "℃"},       {Unit::kCelsius, "c"},
    {Unit::kCentimetre, "cm"},   {Unit::kCentimetre, "厘米"},
};
constexpr std::string_view kOtherUnits[] = {"kg", "千克", "公斤", "mg", "毫克", "t", "um",
                                            "µm", "μm",   "微米", "nm", "in",   "h", "s"};

/// One character of UTF-8 taken from the front; a broken one is taken byte by byte.
std::string_view TakeCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    const std::string_view character = text.substr(0, length);
    text.remove_prefix(character.size());
    return character;
}

/// What stands for the character in a plain text.
std::string_view Plain(std::string_view character, char& buffer) {
    if (character.size() == 3 && character[0] == '\xEF') {  // U+FF01 to U+FF5E: full-width forms
        const unsigned code = (static_cast<unsigned char>(character[1]) & 0x3FU) << 6U |
                              (static_cast<unsigned char>(character[2]) & 0x3FU) | 0xF000U;
        if (code >= 0xFF01U && code <= 0xFF5EU) {
            buffer = static_cast<char>(code - 0xFEE0U);
            return {&buffer, 1};
        }
    }
    constexpr std::pair<std::string_view, std::string_view> kOthers[] = {
        {"\t", " "}, {"\r", " "}, {"\n", " "},  {"\u00A0", " "}, {"\u3000", " "},
        {"〜", "~"}, {"−", "-"},  {"㎜", "mm"}, {"㎝", "cm"}};
    for (const auto& [from, to] : kOthers) {
        if (character == from) {
            return to;
        }
    }
    return character;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Where the number at the front ends.
std::size_t NumberLength(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() &&
           (IsDigit(text[end]) || text[end] == '.' || (text[end] == '-' && end == 0))) {
        ++end;
    }
    if (end > 0 && end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t digit = end + 1;
        digit += digit < text.size() && (text[digit] == '-' || text[digit] == '+') ? 1 : 0;
        if (digit < text.size() && IsDigit(text[digit])) {
            for (end = digit; end < text.size() && IsDigit(text[end]); ++end) {
            }
        }
    }
    return end;
}

bool HasDecimalComma(std::string_view text) {
    const std::size_t comma = text.find(',');
    return comma != std::string_view::npos && comma > 0 && comma + 1 < text.size() &&
           IsDigit(text[comma - 1]) && IsDigit(text[comma + 1]);
}

/// A size at the front of a header, with its unit; nothing when none stands there.
std::optional<double> TakeSize(std::string_view& text, std::string& fault) {
    const std::size_t length = NumberLength(text);
    const std::optional<double> number = ParseNumber(text.substr(0, length));
    if (!number || *number < 0.0) {
        return std::nullopt;
    }
    text.remove_prefix(length);
    const std::size_t end = std::min(text.find_first_of("~-"), text.size());
    std::string_view unit = text.substr(0, end);
    if (unit.size() > 2 && unit.front() == '(' && unit.back() == ')') {
        unit = unit.substr(1, unit.size() - 2);
    }
    if (!unit.empty() && !NamesUnit(unit, Unit::kMillimetre)) {
        if (!NamesAnyUnit(unit)) {
            return std::nullopt;
        }
        fault = "a size in " + std::string(unit) + ": sizes are read in mm";
    }
    text.remove_prefix(end);
    return number;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    const bool found = text.starts_with(prefix);
    text.remove_prefix(found ? prefix.size() : 0);
    return found;
}
}  // namespace

std::string PlainText(std::string_view utf8) {
    std::string plain;
    plain.reserve(utf8.size());
    while (!utf8.empty()) {
        char buffer = 0;
        plain += Plain(TakeCharacter(utf8), buffer);
    }
    return std::string(win32::TrimBlanks(plain));
}

std::string FoldedHeader(std::string_view utf8) {
    std::string folded = PlainText(utf8);
    std::erase(folded, ' ');
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return folded;
}

const char* UnitText(Unit unit) {
    const auto* const found = std::find_if(std::begin(kUnits), std::end(kUnits),
                                           [&](const UnitName& u) { return u.unit == unit; });
    return found == std::end(kUnits) ? "" : found->name.data();
}

bool NamesUnit(std::string_view text, Unit unit) {
    return std::any_of(std::begin(kUnits), std::end(kUnits),
                       [&](const UnitName& u) { return u.unit == unit && u.name == text; });
}

bool NamesAnyUnit(std::string_view text) {
    return std::any_of(std::begin(kUnits), std::end(kUnits),
                       [&](const UnitName& u) { return u.name == text; }) ||
           std::find(std::begin(kOtherUnits), std::end(kOtherUnits), text) != std::end(kOtherUnits);
}

Quantity ReadQuantity(std::string_view text, Unit unit) {
    if (const std::optional<double> plain = ParseNumber(text)) {
        return {*plain, {}};
    }
    const std::string cleaned = PlainText(text);
    const std::size_t length = NumberLength(cleaned);
    const std::optional<double> number = ParseNumber(std::string_view(cleaned).substr(0, length));
    const std::string rest = FoldedHeader(std::string_view(cleaned).substr(length));
    if (number && (rest.empty() || NamesUnit(rest, unit))) {
        return {*number, {}};
    }
    if (number && NamesAnyUnit(rest)) {
        return {0.0, unit == Unit::kNone ? "a unit where a bare number belongs"
                                         : "in " + rest + " where " + UnitText(unit) + " is read"};
    }
    return {0.0, HasDecimalComma(cleaned) ? "a comma in a number; decimals stand after a point"
                                          : "not a number"};
}

std::optional<SizeHeader> ReadSizeHeader(const std::string& folded, std::string& fault) {
    if (folded == "底盘" || folded == "pan") {
        return SizeHeader{};
    }
    std::string_view text = folded;
    TakePrefix(text, "d");
    const bool below = TakePrefix(text, "<") || TakePrefix(text, "≤");
    const bool above = !below && (TakePrefix(text, ">") || TakePrefix(text, "≥"));
    if (below || above) {
        TakePrefix(text, "=");
    } else if (folded.starts_with('d')) {
        return std::nullopt;
    }
    const std::optional<double> size = TakeSize(text, fault);
    if (!size) {
        return std::nullopt;
    }
    SizeHeader header{below ? 0.0 : *size, below ? *size : 0.0};
    if (TakePrefix(text, "~") || TakePrefix(text, "-")) {
        const std::optional<double> other = TakeSize(text, fault);
        if (!other || below || above || !text.empty()) {
            return std::nullopt;
        }
        header.size = std::min(*size, *other);
    }
    return header;
}

}  // namespace lab
