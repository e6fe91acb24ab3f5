#pragma once

#include "src/frame/chart_family.h"

/// Charts of the samples of one borehole.
const ChartFamily& SampleCharts();
/// Charts of soil layers from their design values.
const ChartFamily& LayerCharts();
