#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as decimal texts, which no locale changes.
namespace win32 {

/// The number that the text is, whole and finite; nothing for any other text, also with blanks or a
/// plus sign.
std::optional<double> ParseNumber(std::string_view text);
std::optional<int> ParseInteger(std::string_view text);

/// The shortest text that reads back as the same number.
std::string ShortestText(double number);
/// The double of the float's shortest text: 161.6F gives 161.6, so that what adds up on paper adds
/// up here.
double ShortestDouble(float number);

}  // namespace win32
