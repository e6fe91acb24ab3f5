#include "src/ui/CChartBrowser.h"

#include <utility>

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/CFileFind.h"
#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/facts/control_ids.h"
#include "src/ui/plugin_resources.h"
#include "src/ui/sample_lists.h"

namespace {

constexpr std::size_t kExtensionLength = 4;

std::string SheetLabel(const SheetLabels& labels, const std::string& fileName) {
    CString keys = fileName.c_str() + std::string(labels.filePrefix).size();
    keys.Replace("~", "和"_gbk);
    return labels.word + std::string(keys);
}

}  // namespace

CChartBrowser::CChartBrowser(WORD dialogNumber, SheetLabels labels, std::string chartFolder,
                             CWnd* parent)
    : CDialog(dialogNumber, parent), labels_(labels), chartFolder_(std::move(chartFolder)) {}

BOOL CChartBrowser::OnInitDialog() {
    CDialog::OnInitDialog();
    SetModuleIcon(*this);
    if (OpenedFromChartCommand == 0) {
        ShowStoredSheets();
        return TRUE;
    }
    for (const std::string& sheet : MadeSheets) {
        AddSheet(sheet);
    }
    ShowMadeSheets();
    OpenedFromChartCommand = 0;
    return TRUE;
}

void CChartBrowser::ListSheets(const std::string& pattern) {
    sheets_.ResetContent();
    fileNames_.clear();
    if (FindChar(pattern, '\\') != std::string::npos || pattern.find('/') != std::string::npos) {
        return;
    }
    CFileFind search;
    BOOL found = search.FindFile((chartFolder_ + pattern).c_str());
    while (found) {
        found = search.FindNextFile();
        AddSheet(static_cast<const char*>(search.GetFileName()));
    }
}

void CChartBrowser::AddSheet(const std::string& fileName) {
    fileNames_.push_back(fileName.substr(0, fileName.size() - kExtensionLength));
    sheets_.AddString(SheetLabel(labels_, fileNames_.back()).c_str());
}

void CChartBrowser::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_SHEETS, sheets_);
}

void CChartBrowser::OnOK() {
    LastSheetPath.clear();
    for (int i = 0; i < sheets_.GetCount(); ++i) {
        if (sheets_.GetSel(i) > 0) {
            LastSheetPath +=
                (LastSheetPath.empty() ? "" : "|") + fileNames_[static_cast<std::size_t>(i)];
        }
    }
    if (LastSheetPath.empty()) {
        AfxMessageBox("请选择需要编辑的试样号。"_gbk);
        return;
    }
    CDialog::OnOK();
}

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

CLayerBrowser::CLayerBrowser(std::string chartFolder, CWnd* parent)
    : CChartBrowser(IDD_LAYER_BROWSER, {.filePrefix = "KFSJ", .word = "土层"_gbk},
                    std::move(chartFolder), parent) {}

void CLayerBrowser::ShowStoredSheets() {
    ListSheets("KFSJ*.dwg");
}
