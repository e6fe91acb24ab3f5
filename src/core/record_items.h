#pragma once

#include <array>
#include <optional>

#include "src/core/GrainSizeRecord.h"

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
