#pragma once

#include <vector>

/// Writes the class percentages and the fine fraction of the current sample (ProjectContext,
/// CurrentBorehole, CurrentSample) into its result row. `sizes` in mm, the largest first, with the
/// masses on them; `total` must be above 0. 1 when the row was there, even when writing it failed;
/// 0 when the table did not open, which is told to the user, or the row is missing.
int StoreClassPercentages(const std::vector<double>& sizes, const std::vector<double>& masses,
                          double total);
