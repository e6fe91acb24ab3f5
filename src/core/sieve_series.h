#pragma once

#include <array>

/// One grain class of the standard series: what is retained on the sieve of that size.
struct SieveClass {
    double size;         ///< mm; 0 stands for the pan
    const char* column;  ///< its percentage in a sample's result row
    int layerCode;       ///< its percentage among a layer's parameter values
};

/// The standard series, from the coarsest sieve down. 0.075 and 0.074 mm are both in it: a test
/// uses the one that its sieve set has.
inline constexpr std::array<SieveClass, 19> kSieveSeries{{
    {800, "KL800", 1100},    {400, "KL400", 1101},    {200, "KL200", 1102},  {60, "KL60", 1103},
    {40, "KL40", 1104},      {20, "KL20", 1105},      {10, "KL10", 1106},    {5, "KL5", 1107},
    {2, "KL2", 1108},        {0.5, "KL_5", 1109},     {0.25, "KL_25", 1110}, {0.1, "KL_1", 1111},
    {0.075, "KL_075", 1112}, {0.074, "KL_074", 1113}, {0.05, "KL_05", 1114}, {0.01, "KL_01", 1115},
    {0.005, "KL_005", 1116}, {0.002, "KL_002", 1117}, {0, "KL0", 1118},
}};
