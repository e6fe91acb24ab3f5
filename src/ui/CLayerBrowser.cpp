#include "src/ui/CLayerBrowser.h"

#include <utility>

#include "platform/win32/gbk_literal.h"
#include "src/facts/control_ids.h"

CLayerBrowser::CLayerBrowser(std::string chartFolder, CWnd* parent)
    : CChartBrowser(IDD_LAYER_BROWSER, {.filePrefix = "KFSJ", .word = "土层"_gbk},
                    std::move(chartFolder), parent) {}

void CLayerBrowser::ShowStoredSheets() {
    ListSheets("KFSJ*.dwg");
}
