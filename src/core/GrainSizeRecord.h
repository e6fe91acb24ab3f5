#pragma once

#include <string>
#include <vector>

/// Whose grading a record holds.
enum class RecordKind { sample, layer };

/// Grain-size data of one sample (sieve test) or one soil layer (design values), for the time of
/// one chart. Texts are GBK.
struct GrainSizeRecord {
    RecordKind kind = RecordKind::sample;
    int projectIndex = 0;
    std::string borehole;    ///< of samples
    std::string sample;      ///< sample number; for layers the layer's label
    std::string mainLayer;   ///< of layers: main layer number as text
    std::string subLayer;    ///< of layers: sub-layer number as text, "0" for none
    std::string testMethod;  ///< of samples; empty when none is recorded
    /// Mass of the whole test portion of a sample, the divisor of every share.
    double totalMass = 0.0;
    /// Sieve sizes in mm, largest first; 0 stands for the pan.
    std::vector<double> sizes;
    /// Parallel to `sizes`: mass retained on each sieve (sample), or share of the mass in each
    /// class, 0 to 1 (layer).
    std::vector<double> amounts;

    /// 0 for a record without items.
    double LargestSize() const { return sizes.empty() ? 0.0 : sizes.front(); }
};
