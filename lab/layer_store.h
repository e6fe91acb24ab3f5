#pragma once

#include "lab/Sample.h"
#include "lab/StoreRun.h"

namespace lab {

/// Stores layers in the open suite's project, all or nothing. A layer whose fractions are as stored
/// is left wholly alone; of one that changes the fractions are replaced, what was computed from
/// them is removed, and its mark is taken away. Other design values stay. Failure when something
/// cannot be read or written.
StoreSummary StoreLayers(const std::vector<Layer>& layers, const StoreOptions& options);

}  // namespace lab
