#pragma once

#include <string>

#include "src/chart/CDrawTools.h"
#include "src/frame/chart_family.h"

/// Makes the A3 sheets of SelectedItems, up to six charts each, in the chart folder. False when a
/// chart cannot be drawn or a sheet not be saved, or the person has had enough; the sheets before
/// stay.
bool MakeA3Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools);
