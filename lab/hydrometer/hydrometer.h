#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lab {

/// The instruments whose readings are understood.
enum class HydrometerType {
    kA,    ///< GB/T 50123 type A: grams of soil in a litre, for particles of 2.65 g/cm³ at 20 °C
    kB,    ///< GB/T 50123 type B: density of the suspension at 20 °C, 1.0000 for water
    k152H  ///< ASTM E100 152H: grams in a litre, likewise
};
/// "A", "B", "152H"
const char* HydrometerName(HydrometerType type);

/// How far grains have fallen when the hydrometer shows 0 (type B: 1.000), cm, and how much less it
/// is for each unit of the scale: a gram, type B 0.001.
///
/// Both standards have every instrument measured in its cylinder. What is taken without that is the
/// pattern of ASTM: L = 16.3 - 0.1641 R for 152H, and for type A, whose scale is the same; for type
/// B that of 151H, L = 16.3 - 264.5 (R - 1).
struct FallDepth {
    double atZero;
    double perUnit;

    friend bool operator==(const FallDepth&, const FallDepth&) = default;
};
FallDepth PatternFallDepth(HydrometerType type);

/// One reading, with the corrections of its instrument in the unit of the scale.
struct HydrometerReading {
    double minutes = 0.0;
    double reading = 0.0;  ///< at the upper rim of the meniscus
    double celsius = 0.0;
    double meniscus = 0.0;  ///< n: what the rim stands below the level of the liquid
    double dispersant =
        0.0;  ///< C_D: what water with the dispersant shows at 20 °C, meniscus corrected
    FallDepth depth{};

    friend bool operator==(const HydrometerReading&, const HydrometerReading&) = default;
};

/// The readings of one sample, by time.
struct HydrometerTest {
    std::string borehole;
    std::string sample;
    HydrometerType type = HydrometerType::kA;
    double dryMass = 0.0;  ///< of what is in the cylinder of a litre, g
    double gravity = 0.0;  ///< specific gravity of the particles
    std::vector<HydrometerReading> readings;

    friend bool operator==(const HydrometerTest&, const HydrometerTest&) = default;
};

/// The temperatures at which a type's corrections are known.
struct TemperatureRange {
    double low;
    double high;
};
TemperatureRange TemperaturesOf(HydrometerType type);

/// Dynamic viscosity of water, mPa·s. Types A and B: the table of GB/T 50123, straight between its
/// rows. 152H: ASTM D7928, 0.02414 · 10^(247.8 / (T + 133.15)).
double WaterViscosity(HydrometerType type, double celsius);
/// Density of water, g/cm³: ASTM D7928, 1.00034038 - 7.77e-6 T - 4.95e-6 T².
double WaterDensity(double celsius);

/// What is added to a reading at another temperature than 20 °C, in the unit of the scale. Types A
/// and B: the tables of GB/T 50123 (m_T), straight between their rows. 152H: ASTM D7928's change of
/// the reading in water, 0.01248 (T - 20) + 0.00795 (T² - 400), which is that of the water's
/// density over 0.6226e-3 g/cm³, one unit of the scale.
double TemperatureCorrection(HydrometerType type, double celsius);

/// Diameter of the grains that have fallen from the surface to the hydrometer's centre, mm, by
/// Stokes' law with g = 981 cm/s² (152H: 980.7), L in cm and t in s.
///
/// GB/T 50123, hydrometer method: d = √(1800·10⁴ η L / ((G_s - G_wT) ρ_w g t)), η in 10⁻⁶ kPa·s.
/// ASTM D7928: D = 10 √(18 μ L / (ρ_w g (G_s - 1) t)), μ in g/(cm·s).
/// In both L = depth.atZero - depth.perUnit · (reading + n), of type B (reading + n - 1) · 1000.
double GrainSize(const HydrometerTest& test, const HydrometerReading& reading);

/// Percent of the dry mass that is finer, R = reading + m_T + n - C_D; may be a little below 0 or
/// above 100.
///
/// GB/T 50123, type A: X = 100/m_d · C_s · R, C_s = ρ_s/(ρ_s - ρ_w20) · (2.65 - ρ_w20)/2.65.
/// Type B: X = 100 V/m_d · C_s' · (R - 1) · ρ_w20, C_s' = ρ_s/(ρ_s - ρ_w20), V = 1000 cm³.
/// Both with ρ_w20 = 0.998232 g/cm³. ASTM D7928: N = 0.6226 · G_s/(G_s - 1) · R · 100/M_d.
double PercentFiner(const HydrometerTest& test, const HydrometerReading& reading);

}  // namespace lab
