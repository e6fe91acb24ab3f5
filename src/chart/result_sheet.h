#pragma once

#include <string>

#include "platform/db/AcDbDatabase.h"
#include "src/chart/CDrawTools.h"

/// Baselines of the charts on an A4 sheet, for ChartOriginY.
inline constexpr double kUpperChartY = 268.75;
inline constexpr double kLowerChartY = 152.0;

/// Draws what an A4 sheet has besides its charts: text styles, title, heavy frame, header and
/// footer from ProjectContext and Annotation, outer frame if asked for. Sets the placement values
/// (ChartOriginX and so on) for the upper chart. The chart layer must be current.
void DrawResultSheet(const CDrawTools& tools, AcDbDatabase* sheet);
/// Writes the line of test methods, after the charts; empty for layers.
void DrawTestMethods(const CDrawTools& tools, AcDbDatabase* sheet, const std::string& methods);
