#pragma once

#include "lab/ProjectData.h"
#include "lab/checks/CheckSettings.h"
#include "lab/checks/Finding.h"
#include "src/core/curve_shape.h"

namespace lab {

/// What stands against the data of a sample: cells, items and masses. Whether its chart would be
/// drawn.
bool CheckData(const StoredSample& sample, const CheckSettings& settings, FindingNotes& notes);

/// What its sheet, its curve and its stored results make of a record that can be drawn.
void CheckChart(const ProjectSample& sample, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes);

/// The same two for a layer.
void CheckLayer(const ProjectLayer& layer, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes);

}  // namespace lab
