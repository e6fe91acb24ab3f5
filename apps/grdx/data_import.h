#pragma once

#include <vector>

#include "apps/grdx/SqliteDatabase.h"
#include "apps/grdx/layer_file.h"
#include "apps/grdx/sample_file.h"

namespace console {

/// Store data for project `projectIndex`, all or nothing. A sample or layer that is there already
/// is replaced, and what was computed from it goes with it; other design values of a layer stay.
void StoreSamples(SqliteDatabase& database, int projectIndex,
                  const std::vector<SampleData>& samples);
void StoreLayers(SqliteDatabase& database, int projectIndex, const std::vector<LayerData>& layers);

}  // namespace console
