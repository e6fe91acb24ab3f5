#include "src/ui/CKefenSheet.h"

#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/ui/plugin_resources.h"

CKefenSheet::CKefenSheet(UINT captionNumber, CWnd* parent, UINT firstPage)
    : CPropertySheet(captionNumber, parent, firstPage) {
    AddPages();
}

CKefenSheet::CKefenSheet(const char* caption, CWnd* parent, UINT firstPage)
    : CPropertySheet(caption, parent, firstPage) {
    AddPages();
}

BOOL CKefenSheet::OnInitDialog() {
    const BOOL result = CPropertySheet::OnInitDialog();
    SetModuleIcon(*this);
    // A page loads its settings when it first comes to the front; the charts need those of all.
    SetActivePage(&annotationPage_);
    SetActivePage(&optionPage_);
    SetActivePage(SelectionPage());
    return result;
}

BOOL CKefenSheet::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
    if (nID == IDOK && nCode == CN_COMMAND) {
        if (const std::string objection = Objection(); !objection.empty()) {
            AfxMessageBox(objection.c_str());
            SetActivePage(SelectionPage());
            return TRUE;
        }
    }
    return CPropertySheet::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CKefenSheet::AddPages() {
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
    m_psh.dwFlags &= ~PSH_HASHELP;
    AddPage(SelectionPage());
    AddPage(&optionPage_);
    AddPage(&annotationPage_);
}

CPropertyPage* CKefenSheet::SelectionPage() {
    return ChartMode == kLayerCharts ? static_cast<CPropertyPage*>(&layerPage_) : &samplePage_;
}

/// What to tell the user before the sheet may close; empty for nothing.
std::string CKefenSheet::Objection() const {
    if (ChartMode == kLayerCharts) {
        return layerPage_.HasSelectedLayer() ? layerPage_.Objection() : "请选择试样编号"_gbk;
    }
    if (CurrentBorehole.empty()) {
        return "请选择钻孔编号"_gbk;
    }
    const std::string objection = samplePage_.Objection();
    return !objection.empty() || samplePage_.HasSelectedSample() ? objection : "请选择试样编号"_gbk;
}
