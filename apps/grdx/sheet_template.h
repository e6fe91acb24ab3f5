#pragma once

#include <memory>

class AcDbDatabase;

namespace console {

/// The A3 sheet on which cumulative curves are drawn: frame, cells of the six charts and the cells
/// of the title block around the places where the chart command writes. It is drawn at a thousandth
/// of its size, since it is inserted a thousandfold.
std::unique_ptr<AcDbDatabase> MakeSheetTemplate();

}  // namespace console
