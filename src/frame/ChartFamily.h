#pragma once

#include <string>
#include <vector>

class AcDbDatabase;
class CDrawTools;
class CKefenSheet;

/// What tells charts per sample from charts per soil layer; all else of the chart commands is
/// common to both.
struct ChartFamily {
    const char* guardCaption;  ///< of the question about several open drawings
    const char* filePrefix;    ///< how the names of its sheets begin
    /// What names an item (a sample number or layer label) within sheet file names.
    std::string (*fileKey)(const std::string& item);
    /// The items chosen in the sheet, in its order; also takes over what only this family asks.
    std::vector<std::string> (*takeChoice)(const CKefenSheet& sheet);
    /// Makes the item the one that loaders and layouts work on.
    void (*makeCurrent)(const std::string& item);
    /// The layouts for A4 and A3 sheets: 1 drawn, 0 not drawn.
    int (*drawResultChart)(const CDrawTools& tools, AcDbDatabase* sheet);
    int (*drawCumulativeChart)(const CDrawTools& tools, AcDbDatabase* sheet);
    /// Application-context body that lets the user open sheets.
    void (*openCharts)(void* data);
};

/// Charts of the samples of one borehole.
const ChartFamily& SampleCharts();
/// Charts of soil layers from their design values.
const ChartFamily& LayerCharts();
