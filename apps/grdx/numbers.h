#pragma once

#include <optional>
#include <string_view>

namespace console {

/// The decimal number that the text is, whole and finite; nothing for any other text, also with
/// blanks or a plus sign.
std::optional<double> ParseNumber(std::string_view text);
std::optional<int> ParseInteger(std::string_view text);

/// The number as the project database keeps it: the shortest decimal that the nearest 32-bit float
/// stands for, so that 161.6 is 161.6 again when the charts read it. Nothing when a float cannot
/// hold it.
std::optional<double> StoredNumber(double number);

/// True for a day of the calendar written YYYY-MM-DD.
bool IsDate(std::string_view text);

}  // namespace console
