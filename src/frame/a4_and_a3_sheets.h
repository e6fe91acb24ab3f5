#pragma once

#include <string>

#include "src/chart/CDrawTools.h"
#include "src/frame/ChartFamily.h"

// From SelectedItems to drawing files in the chart folder. Each file is noted in MadeSheets and
// LastSheetPath. False when a layer cannot be made current, a chart not be drawn or a sheet not be
// saved, or the person has had enough; the sheets before stay.

/// Two charts on each sheet.
bool MakeA4Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools);
/// Up to six charts on each sheet.
bool MakeA3Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools);
