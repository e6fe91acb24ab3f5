#pragma once

#include "lab/checks/Finding.h"
#include "src/core/curve_shape.h"

namespace lab {

/// Checks what a record's chart has no room for, and the very curve that would be drawn of it.
void CheckSheetRoom(const GrainSizeRecord& record, const CurveShape& shape, ChartKind kind,
                    FindingNotes& notes);
void CheckCurve(const CurveShape& shape, FindingNotes& notes);
/// Tells when Cu and Cc cannot be determined; `finest` is the percentage at the end of the curve.
void CheckDiameters(const CurveShape& shape, FindingNotes& notes);

/// A number in a finding's text: up to three decimals, more for what is smaller.
std::string FigureText(double figure);

}  // namespace lab
