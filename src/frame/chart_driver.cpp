#include "src/frame/chart_driver.h"

#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/message_box.h"
#include "src/chart/CDrawTools.h"
#include "src/common/module_state.h"
#include "src/core/curve_shape.h"
#include "src/core/gbk_text.h"
#include "src/db/project_database.h"
#include "src/frame/ChartFamily.h"
#include "src/frame/ResourceScope.h"
#include "src/frame/a4_and_a3_sheets.h"
#include "src/frame/chart_folder.h"
#include "src/frame/documents.h"
#include "src/frame/project_context.h"
#include "src/ui/CKefenSheet.h"
#include "src/ui/settings.h"

namespace {

/// Puts the document mode back whichever way the command ends.
class DocumentModeScope {
public:
    DocumentModeScope() = default;
    ~DocumentModeScope() { RestoreDocumentMode(); }
    DocumentModeScope(const DocumentModeScope&) = delete;
    DocumentModeScope& operator=(const DocumentModeScope&) = delete;
};

void TakeChoice(const ChartFamily& family, const CKefenSheet& sheet) {
    SelectedItems = family.takeChoice(sheet);
    SelectedCount = static_cast<int>(SelectedItems.size());
}

/// Only a drawing that cannot be opened stops the command. That the suite has no registered folder
/// is told when the chart folder is made.
bool OpenBlankDrawing() {
    std::string registered;
    const bool known = QueryRegisteredFolder(registered);
    const Acad::ErrorStatus status =
        OpenDocument(registered + "\\Support\\Drawing.dwg", kZoomExtents, false);
    return status != Acad::eDrawingNotOpened || !known;
}

bool MakeSheets(const ChartFamily& family, const std::string& folder) {
    MadeSheets.clear();
    OpenedFromChartCommand = 0;
    const CDrawTools tools;
    return ChartKindOf(ProjectContext.GCBZ) == ChartKind::cumulative
               ? MakeA3Sheets(family, folder, tools)
               : MakeA4Sheets(family, folder, tools);
}

void ShowSheets(const ChartFamily& family) {
    CloseCurrentDocument(true);
    if (MadeSheets.size() == 1) {
        OpenDocument(LastSheetPath, kZoomExtents, false);
        return;
    }
    OpenedFromChartCommand = 1;
    family.openCharts(nullptr);
}

void DrawCharts(const ChartFamily& family) {
    if (!CheckProject(ProjectCheck::kCharts) || !CheckSingleDocument(family.guardCaption)) {
        return;
    }
    LoadProjectContext();
    GuardedCurves = ReadGuardedCurves();
    const ResourceScope resources;
    CKefenSheet sheet("颗粒分析成果图"_gbk, CWnd::FromHandle(adsw_acadMainWnd()));
    const DocumentModeScope documentMode;
    if (sheet.DoModal() != IDOK) {
        return;
    }
    TakeChoice(family, sheet);
    std::string folder;
    if (OpenBlankDrawing() && MakeChartFolder(folder) && MakeSheets(family, folder)) {
        ShowSheets(family);
    }
}

}  // namespace

void DrawSampleCharts(void* /*data*/) {
    DrawCharts(SampleCharts());
}

void DrawLayerCharts(void* /*data*/) {
    DrawCharts(LayerCharts());
}
