#pragma once

#include <array>
#include <optional>
#include <span>

/// A value at or below this counts as not determined: printed as an empty text, stored as null.
inline constexpr double kNotDeterminedUpTo = 0.0001;
/// What a diameter holds when the curve never reaches its level.
inline constexpr double kLevelNotReached = -1.0;

/// Indices of the characteristic diameters in every list of them. dNN is the grain size (mm) that
/// NN percent of the mass is finer than.
enum DiameterIndex : int { kD95, kD85, kD60, kD50, kD30, kD15, kD10, kD90, kDiameterCount };

/// One level at which a diameter is read off the curve.
struct DiameterLevel {
    int percent;        ///< finer than the diameter
    double tenthsDown;  ///< tenths of the grid's height below its top edge
    short layerCode;    ///< of the diameter among a layer's parameter values
};
/// The levels in the order of DiameterIndex.
inline constexpr std::array<DiameterLevel, kDiameterCount> kDiameterLevels{{{95, 0.5, 1126},
                                                                            {85, 1.5, 1124},
                                                                            {60, 4, 1123},
                                                                            {50, 5, 1122},
                                                                            {30, 7, 1121},
                                                                            {15, 8.5, 1120},
                                                                            {10, 9, 1119},
                                                                            {90, 1, 1125}}};
/// Codes of the two coefficients among a layer's parameter values.
inline constexpr short kCurvatureCode = 1127;
inline constexpr short kUniformityCode = 1128;

/// The value, or nothing when it counts as not determined.
std::optional<double> Determined(double value);

/// The diameter at `index`; nothing when the list is too short for it (an interrupted computation)
/// or the diameter is not determined.
std::optional<double> DeterminedDiameter(std::span<const double> diameters, DiameterIndex index);

/// Coefficient of uniformity, d60 / d10; nothing unless both are determined, and it is itself.
std::optional<double> Uniformity(std::span<const double> diameters);
/// Coefficient of curvature, d30² / (d10 × d60); nothing unless all three are determined, and it is
/// itself.
std::optional<double> Curvature(std::span<const double> diameters);
