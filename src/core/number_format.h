#pragma once

#include <string>

/// The value as printed with a fixed number of decimals: the digits of printf's "%.*f".
std::string FormatFixed(double value, int decimals);
/// The value that reading FormatFixed's text gives back, for up to 15 decimals.
double RoundAsPrinted(double value, int decimals);
/// Three printed decimals as the database keeps them: rounded in text, then a 32-bit float.
float Round3(double value);
/// The double of the float's shortest decimal text: 161.6F gives 161.6. So values that add up on
/// paper add up here.
double WidenFloat(float value);

/// Which table of formats FormatResultValue takes.
enum ResultValueMode : int { kDiameterValue = 1, kCoefficientValue = 2 };
/// A diameter (mm) or a coefficient for the eye: the larger the value, the fewer the decimals.
/// Empty for a value below 0, which stands for not determined.
std::string FormatResultValue(double value, ResultValueMode mode);

/// A sieve size (mm) as table headings show it: at most four decimals, no trailing zeros.
std::string FormatSizeLabel(double size);
