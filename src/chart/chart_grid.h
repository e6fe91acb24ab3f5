#pragma once

#include "src/chart/CSheetPen.h"
#include "src/core/CurveGrid.h"

// The parts of the semi-logarithmic grid that both chart forms have. Text heights follow
// ChartTextHeight; the right-hand labels and title are drawn only with RightAxisOption.

/// The eleven percentage lines, every `labelEvery`-th with its labels, whose baseline is
/// `labelDrop` below the line, and the grid's left edge.
void DrawPercentLines(const CSheetPen& pen, const CurveGrid& grid, int labelEvery,
                      double labelDrop);
/// The upright titles of the percentage axes.
void DrawPercentTitles(const CSheetPen& pen, const CurveGrid& grid);
/// Ten lines a decade, the right edge, and a label a decade with its baseline `labelDrop` below the
/// grid; the label at the right edge has a drop of its own.
void DrawSizeAxis(const CSheetPen& pen, const CurveGrid& grid, double labelDrop,
                  double lastLabelDrop);
