#include "src/ui/CSampleBrowser.h"

#include <utility>

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
#include "src/facts/control_ids.h"
#include "src/ui/sample_lists.h"

BEGIN_MESSAGE_MAP(CSampleBrowser, CChartBrowser)
ON_LBN_SELCHANGE(IDC_BROWSER_BOREHOLES, OnSelchangeBorehole)
END_MESSAGE_MAP()

CSampleBrowser::CSampleBrowser(std::string chartFolder, CWnd* parent)
    : CChartBrowser(IDD_SAMPLE_BROWSER, {.filePrefix = "KF", .word = "试样"_gbk},
                    std::move(chartFolder), parent) {}

void CSampleBrowser::ShowMadeSheets() {
    boreholes_.AddString(CurrentBorehole.c_str());
    boreholes_.SetCurSel(0);
}

void CSampleBrowser::ShowStoredSheets() {
    std::vector<SampleKey> samples;
    ReadProjectSamples(samples);
    for (const std::string& borehole : BoreholesOf(samples)) {
        boreholes_.AddString(borehole.c_str());
    }
    CString first;
    boreholes_.SetCurSel(0);
    boreholes_.GetText(0, first);
    CurrentBorehole = static_cast<const char*>(first);
    OnSelchangeBorehole();
}

void CSampleBrowser::OnSelchangeBorehole() {
    CString borehole;
    boreholes_.GetText(boreholes_.GetCurSel(), borehole);
    if (!borehole.IsEmpty()) {
        ListSheets("KF" + std::string(borehole) + "*.dwg");
    }
}

void CSampleBrowser::OnOK() {
    if (boreholes_.GetCurSel() == LB_ERR) {
        AfxMessageBox("请选择钻孔编号."_gbk);
        return;
    }
    CChartBrowser::OnOK();
}

void CSampleBrowser::DoDataExchange(CDataExchange* pDX) {
    CChartBrowser::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_BROWSER_BOREHOLES, boreholes_);
}
