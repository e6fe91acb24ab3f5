#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/Sample.h"

namespace lab {

/// What storing has done, or would do.
struct StoreSummary {
    std::size_t added = 0;
    std::size_t unchanged = 0;
    std::vector<std::string> changed;  ///< by name; their stored results and marks are gone
    std::vector<std::string> notes;    ///< what the user should know besides
};

struct StoreOptions {
    bool dryRun = false;  ///< only tells
    /// Hears now and then how much has been stored, from 0 to 1. What it throws ends the storing,
    /// and nothing is stored.
    std::function<void(double done)> progress;
};

/// Store data in the open suite's project, all or nothing. A sample or layer whose data are as
/// stored is left wholly alone. Of one whose data change everything measured is replaced, the
/// stored results are made null (a layer's are removed), and its mark is taken away. A borehole
/// with a new or changed sample loses its mark, too, which says that all its samples were drawn.
/// Other columns, and other design values of a layer, stay. Failure when something cannot be read
/// or written.
StoreSummary StoreSamples(const std::vector<Sample>& samples, const StoreOptions& options);
StoreSummary StoreLayers(const std::vector<Layer>& layers, const StoreOptions& options);

}  // namespace lab
