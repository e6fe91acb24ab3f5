#pragma once

#include <optional>

#include "lab/ProjectData.h"
#include "lab/Sample.h"
#include "src/core/GrainSizeRecord.h"

namespace lab {

/// The sample as its chart would load it. Nothing when the chart would refuse to: an item lacks
/// size or mass, a size is negative, there is no item or no total mass, or the items weigh more
/// than it.
std::optional<GrainSizeRecord> RecordOf(const Sample& sample);

/// The layer's grading as its chart would load it; with `recompute` scaled to a sum of 1. Nothing
/// when a percentage is no number, which the chart would draw as one.
std::optional<GrainSizeRecord> RecordOf(const ProjectLayer& layer, bool recompute);

}  // namespace lab
