#pragma once

#include "lab/ProjectData.h"
#include "lab/checks/CheckSettings.h"
#include "lab/checks/Finding.h"
#include "lab/sheet_curves.h"
#include "src/core/curve_shape.h"

namespace lab {

/// Each cell that cannot become its column's type.
void CheckCells(const std::vector<StoredSample::Unreadable>& cells, FindingNotes& notes);

/// What stands against the data of a sample: cells, items and masses. Whether its chart would be
/// drawn.
bool CheckData(const StoredSample& sample, const CheckSettings& settings, FindingNotes& notes);

/// What its sheet, its curve and its stored results make of a record that can be drawn.
void CheckChart(const ProjectSample& sample, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes);

/// Whether sieves and hydrometer agree.
void CheckJoint(const ProjectSample& sample, FindingNotes& notes);

/// Whether the sheets show what would be drawn of the data.
void CheckSheets(const ProjectSample& sample, ChartKind kind, const SheetCurves& sheets,
                 FindingNotes& notes);

/// What CheckData and CheckChart are to a sample, for a layer.
void CheckLayer(const ProjectLayer& layer, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes);

}  // namespace lab
