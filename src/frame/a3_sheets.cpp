#include "src/frame/a3_sheets.h"

#include <algorithm>

#include "platform/ed/user_break.h"
#include "src/chart/cumulative_sheet.h"
#include "src/common/module_state.h"
#include "src/frame/sheet_files.h"

namespace {

/// Makes the sheet of the items `first` to `end` - 1.
bool MakeSheet(const ChartFamily& family, const std::string& folder, const CDrawTools& tools,
               int first, int end) {
    std::unique_ptr<AcDbDatabase> sheet;
    for (int i = first; i < end; ++i) {
        family.makeCurrent(SelectedItems[static_cast<std::size_t>(i)]);
        if (sheet == nullptr) {
            sheet = NewSheet(tools);
            if (sheet == nullptr) {
                return false;
            }
            DrawCumulativeSheet(tools, sheet.get());
        }
        PlaceCumulativeChart(i);
        if (family.drawCumulativeChart(tools, sheet.get()) != 1) {
            return false;
        }
    }
    const std::string firstKey = family.fileKey(SelectedItems[static_cast<std::size_t>(first)]);
    const std::string lastKey = family.fileKey(SelectedItems[static_cast<std::size_t>(end) - 1]);
    return SaveSheet(*sheet, folder, SheetFileName(family.filePrefix, firstKey, "_", lastKey));
}

}  // namespace

bool MakeA3Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools) {
    for (int first = 0; first < SelectedCount; first += kChartsPerCumulativeSheet) {
        const int end = std::min(first + kChartsPerCumulativeSheet, SelectedCount);
        if (!MakeSheet(family, folder, tools, first, end)) {
            return false;
        }
        if (end < SelectedCount && acedUsrBrk() != 0) {
            return false;
        }
    }
    return true;
}
