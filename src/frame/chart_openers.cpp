#include "src/frame/chart_openers.h"

#include <string>
#include <vector>

#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/frame/ResourceScope.h"
#include "src/frame/chart_folder.h"
#include "src/frame/documents.h"
#include "src/frame/project_context.h"
#include "src/ui/CChartBrowser.h"

namespace {

/// Puts the chart folder in front of each of the file names that the browser left.
void CompletePaths() {
    std::vector<std::string> names;
    SplitList(LastSheetPath, '|', names);
    LastSheetPath.clear();
    for (const std::string& name : names) {
        LastSheetPath += (LastSheetPath.empty() ? "" : "|") + ChartFolder() + name;
    }
}

template <class Browser>
void OpenChart() {
    if (!CheckProject(ProjectCheck::kOpeners)) {
        return;
    }
    LoadProjectContext();
    const ResourceScope resources;
    Browser browser(ChartFolder(), CWnd::FromHandle(adsw_acadMainWnd()));
    if (browser.DoModal() != IDOK) {
        return;
    }
    if (LastSheetPath.empty()) {
        AfxMessageBox("文件名不能为空!"_gbk);
        return;
    }
    CompletePaths();
    OpenDocument(LastSheetPath, kZoomExtents, false);
}

}  // namespace

void OpenSampleChart(void* /*data*/) {
    OpenChart<CSampleBrowser>();
}

void OpenLayerChart(void* /*data*/) {
    OpenChart<CLayerBrowser>();
}
