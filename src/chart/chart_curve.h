#pragma once

#include "platform/ge/AcGePoint3dArray.h"
#include "src/chart/CSheetPen.h"
#include "src/core/CurveGrid.h"
#include "src/core/GrainSizeRecord.h"

/// Marks the measured points.
void DrawDots(const CSheetPen& pen, const AcGePoint3dArray& points);
/// Makes the record's curve, reads its values, stores them and adds it to the sheet. The values
/// will be written at `valuePoints`, a little smaller than ChartTextHeight.
void AddCurve(const CSheetPen& pen, const GrainSizeRecord& record, const CurveGrid& grid,
              const AcGePoint3dArray& points, const AcGePoint3dArray& valuePoints);
/// Stores a sample's class percentages; a failure is told on the command line. Layers have none.
void StorePercentages(const GrainSizeRecord& record);
