#pragma once

#include <vector>

/// What is known of the current sample (ProjectContext, CurrentBorehole, CurrentSample). Each opens
/// its table, reads and closes it; 1 done, 0 not. Failures are told to the user, a missing sample
/// row excepted.

/// Depth and thickness in metres. 0 with the depth set when the thickness alone is null. `failed`,
/// where it is given, tells whether the table could not be read at all.
int LoadSampleDepth(double& depth, double& thickness, bool* failed = nullptr);
/// Appends the sieve items: sizes in mm, masses in the table's unit, the largest size first, equal
/// sizes by item number. When an item has a null, a number that is none or a size below 0, the ones
/// before it stay appended, by item number.
int LoadTestItems(std::vector<double>& sizes, std::vector<double>& masses);
