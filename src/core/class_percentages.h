#pragma once

#include "src/core/GrainSizeRecord.h"

/// Fills classPercent and finePercent of a sample: what its sieves retained, in percent of the
/// total mass (above 0) by the classes of the series, the others 0. A sieve of another size counts
/// nowhere. What rounding took from or added to 100 is put on the largest class.
void ComputeClassPercentages(GrainSizeRecord& record);
