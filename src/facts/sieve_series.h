#pragma once

#include <array>

/// One grain class of the standard series: what is retained on the sieve of that size.
struct SieveClass {
    double size;    ///< mm; 0 stands for the pan
    int layerCode;  ///< its percentage among a layer's parameter values
};

/// The standard series, from the coarsest sieve down. 0.075 and 0.074 mm are both in it: a test
/// uses the one that its sieve set has.
inline constexpr std::array<SieveClass, 19> kSieveSeries{{
    {800, 1100},  {400, 1101},   {200, 1102},   {60, 1103},    {40, 1104},
    {20, 1105},   {10, 1106},    {5, 1107},     {2, 1108},     {0.5, 1109},
    {0.25, 1110}, {0.1, 1111},   {0.075, 1112}, {0.074, 1113}, {0.05, 1114},
    {0.01, 1115}, {0.005, 1116}, {0.002, 1117}, {0, 1118},
}};
