#pragma once

#include "platform/db/AcDbDatabase.h"
#include "src/chart/CDrawTools.h"

/// Makes the charts' layer in a new sheet and makes it current. 0, after a line on the command
/// line, when that fails.
int SetUpChartLayer(const CDrawTools& tools, AcDbDatabase* sheet);
/// Makes the style of all chart texts in the sheet and makes it current; its id goes into
/// QvFontStyleId for the sheet's curves (null when a font file is missing, which the user is told).
void SetUpChartTextStyle(const CDrawTools& tools, AcDbDatabase* sheet);
