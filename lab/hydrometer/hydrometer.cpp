#include "lab/hydrometer/hydrometer.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace lab {

namespace {
constexpr double kDensityAt20 = 0.998232;   // g/cm³, of water in GB/T 50123
constexpr double kScaleDensity = 2.65;      // g/cm³, of the particles that scales are made for
constexpr double kVolume = 1000.0;          // cm³
constexpr double kUnitsOfDensity = 1000.0;  // units of the depth of fall in 1 g/cm³ of type B
constexpr double kScaleTemperature = 20.0;  // °C
constexpr double kSecondsPerMinute = 60.0;

/// GB/T 50123, corrections of readings for temperature.
struct CorrectionRow {
    double celsius;
    double typeA;  ///< g
    double typeB;  ///< 0.0001
};
constexpr CorrectionRow kCorrections[] = {
    {10.0, -2.0, -12}, {10.5, -1.9, -12}, {11.0, -1.9, -12}, {11.5, -1.8, -11}, {12.0, -1.8, -11},
    {12.5, -1.7, -10}, {13.0, -1.6, -10}, {13.5, -1.5, -9},  {14.0, -1.4, -9},  {14.5, -1.3, -8},
    {15.0, -1.2, -8},  {15.5, -1.1, -7},  {16.0, -1.0, -6},  {16.5, -0.9, -6},  {17.0, -0.8, -5},
    {17.5, -0.7, -4},  {18.0, -0.5, -3},  {18.5, -0.4, -3},  {19.0, -0.3, -2},  {19.5, -0.1, -1},
    {20.0, 0.0, 0},    {20.5, 0.1, 1},    {21.0, 0.3, 2},    {21.5, 0.5, 3},    {22.0, 0.6, 4},
    {22.5, 0.8, 5},    {23.0, 0.9, 6},    {23.5, 1.1, 7},    {24.0, 1.3, 8},    {24.5, 1.5, 9},
    {25.0, 1.7, 10},   {25.5, 1.9, 11},   {26.0, 2.1, 13},   {26.5, 2.2, 14},   {27.0, 2.5, 15},
    {27.5, 2.6, 16},   {28.0, 2.9, 18},   {28.5, 3.1, 19},   {29.0, 3.3, 21},   {29.5, 3.5, 22},
    {30.0, 3.7, 23}};

/// GB/T 50123, dynamic viscosity of water.
struct ViscosityRow {
    double celsius;
    double viscosity;  ///< 10⁻⁶ kPa·s, which is mPa·s
};
constexpr ViscosityRow kViscosities[] = {
    {10.0, 1.310}, {10.5, 1.292}, {11.0, 1.274}, {11.5, 1.256}, {12.0, 1.239}, {12.5, 1.223},
    {13.0, 1.206}, {13.5, 1.188}, {14.0, 1.175}, {14.5, 1.160}, {15.0, 1.144}, {15.5, 1.130},
    {16.0, 1.115}, {16.5, 1.101}, {17.0, 1.088}, {17.5, 1.074}, {18.0, 1.061}, {18.5, 1.048},
    {19.0, 1.035}, {19.5, 1.022}, {20.0, 1.010}, {20.5, 0.998}, {21.0, 0.986}, {21.5, 0.974},
    {22.0, 0.963}, {22.5, 0.952}, {23.0, 0.941}, {24.0, 0.919}, {25.0, 0.899}, {26.0, 0.879},
    {27.0, 0.859}, {28.0, 0.841}, {29.0, 0.823}, {30.0, 0.806}};

/// The value at a temperature within the table, straight between its rows.
template <class Row, std::size_t n, class ValueOf>
double Between(const Row (&rows)[n], double celsius, ValueOf valueOf) {
    const Row* const next = std::lower_bound(
        std::next(std::begin(rows)), std::prev(std::end(rows)), celsius,
        [](const Row& row, double temperature) { return row.celsius < temperature; });
    const Row& before = *std::prev(next);
    const double share = (celsius - before.celsius) / (next->celsius - before.celsius);
    return valueOf(before) + share * (valueOf(*next) - valueOf(before));
}

double DepthOfFall(HydrometerType type, const HydrometerReading& reading) {
    const double shown = reading.reading + reading.meniscus;
    const double units = type == HydrometerType::kB ? (shown - 1.0) * kUnitsOfDensity : shown;
    return reading.depth.atZero - reading.depth.perUnit * units;
}
}  // namespace

const char* HydrometerName(HydrometerType type) {
    return type == HydrometerType::kA ? "A" : type == HydrometerType::kB ? "B" : "152H";
}

FallDepth PatternFallDepth(HydrometerType type) {
    return type == HydrometerType::kB ? FallDepth{16.3, 0.2645} : FallDepth{16.3, 0.1641};
}

TemperatureRange TemperaturesOf(HydrometerType type) {
    return type == HydrometerType::k152H ? TemperatureRange{5.0, 40.0}
                                         : TemperatureRange{10.0, 30.0};
}

double WaterViscosity(HydrometerType type, double celsius) {
    if (type == HydrometerType::k152H) {
        return 0.02414 * std::pow(10.0, 247.8 / (celsius + 133.15));
    }
    return Between(kViscosities, celsius, [](const ViscosityRow& row) { return row.viscosity; });
}

double WaterDensity(double celsius) {
    return 1.00034038 - 7.77e-6 * celsius - 4.95e-6 * celsius * celsius;
}

double TemperatureCorrection(HydrometerType type, double celsius) {
    constexpr double kStepOfTypeB = 0.0001;
    switch (type) {
        case HydrometerType::kA:
            return Between(kCorrections, celsius,
                           [](const CorrectionRow& row) { return row.typeA; });
        case HydrometerType::kB:
            return kStepOfTypeB * Between(kCorrections, celsius,
                                          [](const CorrectionRow& row) { return row.typeB; });
        default:
            return 0.01248 * (celsius - kScaleTemperature) +
                   0.00795 * (celsius * celsius - kScaleTemperature * kScaleTemperature);
    }
}

double GrainSize(const HydrometerTest& test, const HydrometerReading& reading) {
    constexpr double kMillimetresPerCentimetre = 10.0;
    constexpr double kPoisePerMilliPascalSecond = 0.01;
    const bool astm = test.type == HydrometerType::k152H;
    const double density = WaterDensity(reading.celsius);
    // (G_s - 1) ρ_w of the one is (G_s - G_wT) ρ_w0 of the other but for the third decimal.
    const double excess = astm ? (test.gravity - 1.0) * density : test.gravity - density;
    const double gravity = astm ? 980.7 : 981.0;
    const double viscosity =
        WaterViscosity(test.type, reading.celsius) * kPoisePerMilliPascalSecond;
    return kMillimetresPerCentimetre *
           std::sqrt(18.0 * viscosity / (excess * gravity) * DepthOfFall(test.type, reading) /
                     (reading.minutes * kSecondsPerMinute));
}

double PercentFiner(const HydrometerTest& test, const HydrometerReading& reading) {
    const double corrected = reading.reading + reading.meniscus - reading.dispersant +
                             TemperatureCorrection(test.type, reading.celsius);
    const double excess = test.gravity - kDensityAt20;
    switch (test.type) {
        case HydrometerType::kA:
            return 100.0 / test.dryMass * (test.gravity / excess) *
                   ((kScaleDensity - kDensityAt20) / kScaleDensity) * corrected;
        case HydrometerType::kB:
            return 100.0 * kVolume / test.dryMass * (test.gravity / excess) * (corrected - 1.0) *
                   kDensityAt20;
        default:
            return 0.6226 * test.gravity / (test.gravity - 1.0) * corrected * 100.0 / test.dryMass;
    }
}

}  // namespace lab
