#pragma once

#include <string>

#include "src/chart/CDrawTools.h"

/// Charts on an A4 sheet.
inline constexpr int kChartsPerResultSheet = 2;
/// Their baselines, for ChartOriginY.
inline constexpr double kUpperChartY = 268.75;
inline constexpr double kLowerChartY = 152.0;

/// Draws what an A4 sheet has besides its charts: text styles, title, heavy frame, header and
/// footer from ProjectContext and Annotation, outer frame if asked for. Sets the placement values
/// (ChartOriginX and so on) for the upper chart. The chart layer must be current.
void DrawResultSheet(const CDrawTools& tools, AcDbDatabase* sheet);
/// Writes the line of test methods, after the charts; empty for layers.
void DrawTestMethods(const CDrawTools& tools, AcDbDatabase* sheet, const std::string& methods);

/// Charts on an A3 sheet.
inline constexpr int kChartsPerCumulativeSheet = 6;

/// Draws what an A3 sheet has besides its charts: text style, the sheet template if it is on the
/// search path, outer frame if asked for, title block texts. The chart layer must be current.
void DrawCumulativeSheet(const CDrawTools& tools, AcDbDatabase* sheet);
/// Sets the placement values for the chart of that number in the selection, from 0: three rows of
/// two on each sheet.
void PlaceCumulativeChart(int chartNumber);

/// Makes the charts' layer in a new sheet and makes it current. 0, after a line on the command
/// line, when that fails.
int SetUpChartLayer(const CDrawTools& tools, AcDbDatabase* sheet);
/// Makes the style of all chart texts in the sheet and makes it current; its id goes into
/// QvFontStyleId for the sheet's curves (null when a font file is missing, which the user is told).
void SetUpChartTextStyle(const CDrawTools& tools, AcDbDatabase* sheet);
