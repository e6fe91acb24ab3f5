#pragma once

/// Bodies of the chart commands for the application context; `data` is not used. They check the
/// project, ask what to draw, make one drawing file a sheet in the chart folder and open the sheet,
/// or the browser over them when there are several. Where a step fails the user has been told,
/// sheets saved before stay, and nothing is opened.
void DrawSampleCharts(void* data);
void DrawLayerCharts(void* data);
