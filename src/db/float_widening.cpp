#include "src/db/float_widening.h"

#include <charconv>

double WidenFloat(float value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    double wide = 0.0;
    std::from_chars(digits, end, wide);
    return wide;
}
