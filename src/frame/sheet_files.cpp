#include "src/frame/sheet_files.h"

#include "src/chart/sheet_setup.h"
#include "src/common/module_state.h"

std::unique_ptr<AcDbDatabase> NewSheet(const CDrawTools& tools) {
    auto sheet = std::make_unique<AcDbDatabase>(true, false);
    return SetUpChartLayer(tools, sheet.get()) != 0 ? std::move(sheet) : nullptr;
}

std::string SheetFileName(const std::string& prefix, const std::string& firstKey,
                          const std::string& separator, const std::string& lastKey) {
    return prefix + firstKey + (lastKey == firstKey ? "" : separator + lastKey) + ".dwg";
}

bool SaveSheet(AcDbDatabase& sheet, const std::string& folder, const std::string& fileName) {
    const std::string path = folder + fileName;
    if (sheet.saveAs(path.c_str()) != Acad::eOk) {
        return false;
    }
    MadeSheets.push_back(fileName);
    LastSheetPath = path;
    return true;
}
