#pragma once

#include <string>

#include "src/core/GrainSizeRecord.h"

// What charts and the store command read of the project database. Each opens its table, reads and
// closes it; 1 done, 0 not. Failures are told to the user, a missing sample or result row and
// everything about layers excepted.

/// Fills in all that the tables have of the sample whose key the record holds: total mass, test
/// method and items. A sample without total mass counts as one without a result row.
int LoadSample(GrainSizeRecord& record);
/// Appends the sieve items of that sample, the largest size first, equal sizes by item number. When
/// an item has a null, a number that is none or a size below 0, the ones before it stay appended,
/// by item number.
int LoadTestItems(GrainSizeRecord& record);
/// Depth and thickness of that sample in metres. 0 with the depth set when the thickness alone is
/// null. `failed`, where it is given, tells whether the table could not be read at all.
int LoadSampleDepth(const GrainSizeRecord& record, double& depth, double& thickness,
                    bool* failed = nullptr);

/// Makes the items of the layer whose key the record holds, of its design values (SetLayerFractions
/// tells how). 0 when the layer has no row or not all of them can be read.
int LoadLayerFractions(GrainSizeRecord& record, bool recompute);

/// 1 when the project with that index still has that number (GBK, compared byte for byte).
int CheckProjectNumber(int projectIndex, const std::string& projectNumber);
