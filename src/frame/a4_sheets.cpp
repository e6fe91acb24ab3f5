#include "src/frame/a4_sheets.h"

#include "platform/ed/user_break.h"
#include "platform/mfc/CString.h"
#include "src/chart/result_sheet.h"
#include "src/common/module_state.h"
#include "src/frame/sheet_files.h"

namespace {

using Item = std::vector<std::string>::const_iterator;

bool DrawUpperChart(const ChartFamily& family, const CDrawTools& tools, AcDbDatabase* sheet) {
    ChartOriginY = kUpperChartY;
    if (family.drawResultChart(tools, sheet) != 1) {
        return false;
    }
    PreviousSample.clear();
    SheetMethods = CurrentMethod;
    return true;
}

bool DrawLowerChart(const ChartFamily& family, const std::string& item, const CDrawTools& tools,
                    AcDbDatabase* sheet) {
    PreviousSample = CurrentSample;
    family.makeCurrent(item);
    ChartOriginY = kLowerChartY;
    if (family.drawResultChart(tools, sheet) != 1) {
        return false;
    }
    if (CString(CurrentMethod.c_str()).CompareNoCase(SheetMethods.c_str()) != 0) {
        SheetMethods += "," + CurrentMethod;
    }
    return true;
}

/// Makes the sheet that begins with `item`, which moves on to the first item of the next sheet.
bool MakeSheet(const ChartFamily& family, const std::string& folder, const CDrawTools& tools,
               Item& item) {
    family.makeCurrent(*item);
    const std::unique_ptr<AcDbDatabase> sheet = NewSheet(tools);
    if (sheet == nullptr) {
        return false;
    }
    DrawResultSheet(tools, sheet.get());
    const std::string firstKey = family.fileKey(*item);
    std::string lastKey = firstKey;
    if (!DrawUpperChart(family, tools, sheet.get())) {
        return false;
    }
    if (++item != SelectedItems.cend()) {
        if (!DrawLowerChart(family, *item, tools, sheet.get())) {
            return false;
        }
        lastKey = family.fileKey(*item++);
    }
    CurrentMethod = SheetMethods;
    DrawTestMethods(tools, sheet.get(), CurrentMethod);
    return SaveSheet(*sheet, folder, SheetFileName(family.filePrefix, firstKey, "~", lastKey));
}

}  // namespace

bool MakeA4Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools) {
    for (Item item = SelectedItems.cbegin(); item != SelectedItems.cend();) {
        if (!MakeSheet(family, folder, tools, item)) {
            return false;
        }
        if (item != SelectedItems.cend() && acedUsrBrk() != 0) {
            return false;
        }
    }
    return true;
}
