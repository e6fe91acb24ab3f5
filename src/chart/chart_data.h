#pragma once

#include <vector>

#include "src/core/GrainSizeRecord.h"

/// What a chart is drawn from.
struct ChartData {
    GrainSizeRecord record;
    std::vector<double> passing;  ///< share finer than each size of the record
};

/// Loads the sample or layer that the module-wide values name. False when its data cannot be used;
/// the user has then been told, unless a sample has no result row or a layer no design values.
bool LoadChartData(RecordKind kind, ChartData& data);
