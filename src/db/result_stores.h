#pragma once

#include "src/core/GrainSizeRecord.h"

// What charts and the store command write into the project database: results of the sample or layer
// whose key the record holds, into rows that are there.

/// Writes the diameters and the two coefficients in one step: with `chartMode` kSampleCharts into
/// the sample's result row, with kLayerCharts into the layer's parameter rows, otherwise nowhere. 1
/// done, even when the database refused single rows; 0 when the table did not open (told to the
/// user in sample charts only), there is no row for the sample or layer, or the database could not
/// be written at all.
int StoreCurveValues(const GrainSizeRecord& record, int chartMode);

/// Writes the class percentages and the fine fraction into the sample's result row. 1 when the row
/// was there, even when writing it failed; 0 when the table did not open, which is told to the
/// user, or the row is missing.
int StoreClassPercentages(const GrainSizeRecord& record);
