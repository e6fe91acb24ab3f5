#pragma once

#include <vector>

#include "apps/grdx/layer_file.h"
#include "apps/grdx/sample_file.h"
#include "platform/oledb/SqlDatabase.h"

namespace console {

/// Store data for project `projectIndex`, all or nothing. A sample or layer that is there already
/// is replaced, and what was computed from it goes with it; other design values of a layer stay.
void StoreSamples(oledb::SqlDatabase& database, int projectIndex,
                  const std::vector<SampleData>& samples);
void StoreLayers(oledb::SqlDatabase& database, int projectIndex,
                 const std::vector<LayerData>& layers);

}  // namespace console
