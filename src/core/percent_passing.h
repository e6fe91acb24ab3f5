#pragma once

#include <vector>

#include "platform/ge/AcGePoint3dArray.h"
#include "src/core/CurveGrid.h"
#include "src/core/GrainSizeRecord.h"

/// For each item the share of the total mass finer than its size, 0 to 1; mass of a sample that is
/// on no sieve counts as finer than all. False, after a message box, for a sample whose masses add
/// up to more than its total mass, or whose total mass is not above 0 or infinite; `passing` is
/// then unchanged.
bool ComputePassing(const GrainSizeRecord& record, std::vector<double>& passing);

/// The plotted points, from the coarsest sieve to the finest; the pan (size 0) has none.
AcGePoint3dArray CurvePoints(const GrainSizeRecord& record, const std::vector<double>& passing,
                             const CurveGrid& grid);
