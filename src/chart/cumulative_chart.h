#pragma once

#include "src/chart/CDrawTools.h"

/// Draws the cumulative curve chart of the current sample (ProjectContext, CurrentBorehole,
/// CurrentSample) into one cell of an A3 sheet, with the header's baseline at ChartOriginY and the
/// grid's left edge at ChartOriginX, and stores its results. 1 drawn; 0 when the sample's data
/// cannot be used: then nothing was drawn, and the user has been told unless the sample has no
/// result row. Leaves ChartTextHeight at 3 and ChartLineGap at 1.
int DrawCumulativeChart(const CDrawTools& tools, AcDbDatabase* sheet);
/// The same for the current layer (CurrentSample as its label, CurrentMainLayer, CurrentSubLayer);
/// a layer without design values gives 0, and the user is told nothing.
int DrawLayerCumulativeChart(const CDrawTools& tools, AcDbDatabase* sheet);
