#include "src/frame/a4_and_a3_sheets.h"

#include <algorithm>
#include <memory>

#include "platform/db/AcDbDatabase.h"
#include "platform/ed/user_break.h"
#include "platform/mfc/CString.h"
#include "src/chart/sheet_layout.h"
#include "src/common/module_state.h"

namespace {

const std::string& Item(int index) {
    return SelectedItems[static_cast<std::size_t>(index)];
}

/// A new drawing in memory with the charts' layer current; null, after telling the user, when the
/// layer cannot be made so.
std::unique_ptr<AcDbDatabase> NewSheet(const CDrawTools& tools) {
    auto sheet = std::make_unique<AcDbDatabase>(true, false);
    return SetUpChartLayer(tools, sheet.get()) != 0 ? std::move(sheet) : nullptr;
}

/// Writes the sheet of the charts from `first` to `last`, whose keys its name has, and notes it.
bool SaveSheet(const ChartFamily& family, AcDbDatabase& sheet, const std::string& folder,
               const std::string& first, const char* separator, const std::string& last) {
    std::string fileName = family.filePrefix + family.fileKey(first);
    if (last != first) {
        fileName += separator + family.fileKey(last);
    }
    fileName += ".dwg";
    const std::string path = folder + fileName;
    if (sheet.saveAs(path.c_str()) != Acad::eOk) {
        return false;
    }
    MadeSheets.push_back(fileName);
    LastSheetPath = path;
    return true;
}

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

/// Makes the sheet that begins with that item.
bool MakeA4Sheet(const ChartFamily& family, const std::string& folder, const CDrawTools& tools,
                 int item) {
    family.makeCurrent(Item(item));
    const std::unique_ptr<AcDbDatabase> sheet = NewSheet(tools);
    if (sheet == nullptr) {
        return false;
    }
    DrawResultSheet(tools, sheet.get());
    if (!DrawUpperChart(family, tools, sheet.get())) {
        return false;
    }
    if (item + 1 < SelectedCount && !DrawLowerChart(family, Item(item + 1), tools, sheet.get())) {
        return false;
    }
    CurrentMethod = SheetMethods;
    DrawTestMethods(tools, sheet.get(), CurrentMethod);
    return SaveSheet(family, *sheet, folder,
                     PreviousSample.empty() ? CurrentSample : PreviousSample, "~", CurrentSample);
}

/// Makes the sheet of the items `first` to `end` - 1.
bool MakeA3Sheet(const ChartFamily& family, const std::string& folder, const CDrawTools& tools,
                 int first, int end) {
    std::unique_ptr<AcDbDatabase> sheet;
    for (int i = first; i < end; ++i) {
        family.makeCurrent(Item(i));
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
    return SaveSheet(family, *sheet, folder, Item(first), "_", Item(end - 1));
}

/// Calls `make(first, end)` for the items of each sheet; asks between them whether to go on.
template <class Make>
bool MakeSheets(int chartsPerSheet, Make make) {
    for (int first = 0; first < SelectedCount; first += chartsPerSheet) {
        const int end = std::min(first + chartsPerSheet, SelectedCount);
        if (!make(first, end) || (end < SelectedCount && acedUsrBrk() != 0)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool MakeA4Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools) {
    return MakeSheets(kChartsPerResultSheet, [&](int first, int /*end*/) {
        return MakeA4Sheet(family, folder, tools, first);
    });
}

bool MakeA3Sheets(const ChartFamily& family, const std::string& folder, const CDrawTools& tools) {
    return MakeSheets(kChartsPerCumulativeSheet, [&](int first, int end) {
        return MakeA3Sheet(family, folder, tools, first, end);
    });
}
