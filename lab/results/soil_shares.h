#pragma once

#include <optional>
#include <string>

#include "src/core/GrainSizeRecord.h"

namespace lab {

/// Percent of a sample's mass by the grains' size, one decimal. Each is empty where the sieves do
/// not tell it; all four add up to 100.
struct SoilShares {
    std::optional<double> gravel;  ///< over 2 mm
    std::optional<double> sand;    ///< 2 to 0.075 mm
    std::optional<double> silt;    ///< 0.075 to 0.005 mm
    std::optional<double> clay;    ///< finer
};

/// Shares of a record that ComputePassing accepts. Between two sieves what is finer lies on a
/// straight line over the logarithm of size; on a sieve coarser than all others nothing is taken to
/// be coarser than the next bound. What passes the finest sieve is divided no further: silt and
/// clay are empty when nothing below 0.075 mm was measured, or not down to 0.005 mm.
SoilShares SoilSharesOf(const GrainSizeRecord& record);

/// The soil's name as its sheet has it; UTF-8, empty where the standard names none.
std::string SoilNameOf(const GrainSizeRecord& record, int standardCode);

}  // namespace lab
