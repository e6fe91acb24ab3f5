#pragma once

#include <vector>

#include "platform/ge/AcGePoint3d.h"
#include "src/chart/CSheetPen.h"
#include "src/core/CurveGrid.h"
#include "src/core/GrainSizeRecord.h"

/// What a chart is drawn from.
struct ChartData {
    GrainSizeRecord record;
    std::vector<double> passing;  ///< share finer than each size of the record
};

/// Loads the sample or layer that the module-wide values name. False when its data cannot be used;
/// the user has then been told, unless a sample has no result row or a layer no design values.
bool LoadChartData(RecordKind kind, ChartData& data);

/// Marks the measured points.
void DrawDots(const CSheetPen& pen, const AcGePoint3dArray& points);
/// Makes the record's curve through the measured points, guarded if asked for, reads its values,
/// stores them, of a sample with its class percentages, and adds it to the sheet. The values will
/// be written at `valuePoints`, a little smaller than ChartTextHeight. A row that is missing for
/// the percentages is told on the command line.
void AddCurve(const CSheetPen& pen, GrainSizeRecord& record, const CurveGrid& grid,
              const AcGePoint3dArray& measured, const AcGePoint3dArray& valuePoints);
