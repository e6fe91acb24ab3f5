#pragma once

#include <string>

#include "platform/ge/AcGePoint3dArray.h"
#include "src/chart/CCompositionTable.h"
#include "src/chart/CSheetPen.h"

/// Draws the names of the composition indices beside the columns of the table, or below them when
/// it is long. Gives the points where the curve writes the values: d60, Cu, d30, d10, Cc.
AcGePoint3dArray DrawIndexBlock(const CSheetPen& pen, const CCompositionTable& table);
/// Writes the soil class line into the block.
void DrawSoilClass(const CSheetPen& pen, const CCompositionTable& table,
                   const std::string& soilClass);
