#pragma once

/// Bodies of the chart-opening commands for the application context; `data` is not used. They let
/// the user choose among the project's sheets, or the sheets just made when OpenedFromChartCommand
/// is 1, and open the choice.
void OpenSampleChart(void* data);
void OpenLayerChart(void* data);
