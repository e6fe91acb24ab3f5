#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "src/core/characteristic_diameters.h"
#include "src/facts/sieve_series.h"

/// Whose grading a record holds.
enum class RecordKind { sample, layer };

/// Grain-size data of one sample (sieve test) or one soil layer (design values), and what comes of
/// them, for the time of one chart. Texts are GBK.
struct GrainSizeRecord {
    RecordKind kind = RecordKind::sample;
    int projectIndex = 0;
    std::string borehole;    ///< of samples
    std::string sample;      ///< sample number; for layers the layer's label
    int mainLayer = 0;       ///< of layers: main layer number, 0 to 255
    int subLayer = 0;        ///< of layers: sub-layer number, 0 to 255; 0 for none
    std::string testMethod;  ///< of samples; empty when none is recorded
    /// Mass of the whole test portion of a sample, the divisor of every share.
    double totalMass = 0.0;
    /// Sieve sizes in mm, largest first; 0 stands for the pan.
    std::vector<double> sizes;
    /// Parallel to `sizes`: mass retained on each sieve (sample), or share of the mass in each
    /// class, 0 to 1 (layer).
    std::vector<double> amounts;

    // Results. Those of samples that have not been computed, or cannot be, are null.

    /// Percent of the total mass in each class of kSieveSeries, three decimals.
    std::array<std::optional<float>, kSieveSeries.size()> classPercent{};
    std::optional<float> finePercent;  ///< percent of the mass finer than 0.005 mm
    /// mm, in the order of DiameterIndex; kLevelNotReached where the curve misses the level.
    /// Shorter after an interrupted reading.
    std::vector<double> diameters;
    std::optional<double> uniformity;  ///< Cu
    std::optional<double> curvature;   ///< Cc

    /// 0 for a record without items.
    double LargestSize() const { return sizes.empty() ? 0.0 : sizes.front(); }
};

// How the items of a record come of what the tables hold.

/// Orders the items by size, the largest first; equal sizes keep their order.
void SortBySize(GrainSizeRecord& record);

/// Shares of a layer's mass by the classes of kSieveSeries, 1 for all of it; null where the layer
/// has no value.
using ClassFractions = std::array<std::optional<double>, kSieveSeries.size()>;
/// Makes the items of a layer. The class below the finest sieve is left out, but counts when
/// `recompute` scales the fractions to a sum of 1; with a sum of 0 they stay as they are. A share
/// of -0.5 or less counts as no value.
void SetLayerFractions(GrainSizeRecord& record, const ClassFractions& classes, bool recompute);
