#pragma once

#include <vector>

#include "lab/hydrometer/hydrometer.h"
#include "lab/tables/table_files.h"

namespace lab {

/// The tests in tables of readings, one row a reading, in the order of their first rows; readings
/// by time. What is wrong with the files is in `findings`; when something is, the tests are not to
/// be used. Besides what a cell cannot be, sizes that do not fall with time are refused,
/// percentages that rise with it, and percentages below 0.
std::vector<HydrometerTest> ReadHydrometerTests(const std::vector<TableFile>& files,
                                                const TableOptions& options, Findings& findings);

}  // namespace lab
