#pragma once

#include "src/chart/CDrawTools.h"

/// Draws the grading curve and composition table of the current sample (ProjectContext,
/// CurrentBorehole, CurrentSample) into an A4 sheet below ChartOriginY, stores the results and puts
/// the sample's test method into CurrentMethod. 1 drawn; 0 when the sample's data cannot be used:
/// then nothing was drawn, and the user has been told unless the sample has no result row. Leaves
/// ChartTextHeight at 3 and ChartLineGap at 1.
int DrawResultChart(const CDrawTools& tools, AcDbDatabase* sheet);
/// The same for the current layer (CurrentSample as its label, CurrentMainLayer, CurrentSubLayer),
/// which has no test method; a layer without design values gives 0, and the user is told nothing.
int DrawLayerResultChart(const CDrawTools& tools, AcDbDatabase* sheet);
