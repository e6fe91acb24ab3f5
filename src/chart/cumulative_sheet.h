#pragma once

#include "platform/db/AcDbDatabase.h"
#include "src/chart/CDrawTools.h"

/// Charts on an A3 sheet.
inline constexpr int kChartsPerCumulativeSheet = 6;

/// Draws what an A3 sheet has besides its charts: text style, the sheet template if it is on the
/// search path, outer frame if asked for, title block texts. The chart layer must be current.
void DrawCumulativeSheet(const CDrawTools& tools, AcDbDatabase* sheet);
/// Sets the placement values for the chart of that number in the selection, from 0: three rows of
/// two on each sheet.
void PlaceCumulativeChart(int chartNumber);
