#include "src/ui/CChartBrowser.h"

#include <utility>

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/CFileFind.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/code_page.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
#include "src/facts/control_ids.h"
#include "src/ui/module_icon.h"

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
    if (win32::FindChar(pattern, '\\') != std::string::npos ||
        pattern.find('/') != std::string::npos) {
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
