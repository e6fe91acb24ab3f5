#pragma once

#include <string>

#include "src/core/GrainSizeRecord.h"

/// Name of a coarse-grained soil by the shares of its grains coarser than 200, 20, 2, 0.5, 0.25 and
/// 0.075 mm; standard code 1 takes 0.1 mm for the last. Empty for fine-grained soils, except under
/// standard code 1, which names every soil. A sample's masses count as parts of its total mass. A
/// share within 1e-9 of a bound is at the bound.
std::string ClassifySoil(const GrainSizeRecord& record, int standardCode);
