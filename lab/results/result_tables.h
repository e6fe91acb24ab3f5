#pragma once

#include <utility>
#include <vector>

#include "lab/ProjectData.h"
#include "lab/results/ResultTable.h"
#include "src/core/GrainSizeRecord.h"

namespace lab {

/// One row a sample: what was measured of the whole sample, the stored diameters and coefficients,
/// shares and soil name, whether it is drawn, and its findings.
ResultTable ResultsOf(const ProjectData& data, const FindingList& findings);
/// One row a sieve but the pan: percent finer. Samples that cannot be drawn have none.
ResultTable PassingOf(const ProjectData& data);
/// One row an item, in the columns and the order that import reads.
ResultTable ItemsOf(const ProjectData& data);

/// The percentages finer than the sieves, the pan left out, by size in mm; of a record that
/// ComputePassing accepts.
std::vector<std::pair<double, double>> PercentFinerOf(const GrainSizeRecord& record);

}  // namespace lab
