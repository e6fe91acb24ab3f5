#pragma once

#include <optional>
#include <string_view>

#include "platform/win32/number_text.h"

namespace lab {

using win32::ParseInteger;
using win32::ParseNumber;
using win32::ShortestText;

/// The number as the project database keeps it: the shortest decimal that the nearest 32-bit float
/// stands for, so that 161.6 is 161.6 again when the charts read it. Nothing when a float cannot
/// hold it.
std::optional<double> StoredNumber(double number);

/// True for a day of the calendar written YYYY-MM-DD.
bool IsDate(std::string_view text);

}  // namespace lab
