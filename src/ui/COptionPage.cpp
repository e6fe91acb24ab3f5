#include "src/ui/COptionPage.h"

#include "platform/mfc/CDataExchange.h"
#include "src/common/module_state.h"
#include "src/facts/control_ids.h"
#include "src/ui/settings.h"

COptionPage::COptionPage() : CModulePage(IDD_OPTIONS) {}

BOOL COptionPage::OnInitDialog() {
    rightAxis_ = ReadSettingFlag("bZB");
    outerFrame_ = ReadSettingFlag("bJWKX");
    recompute_ = ReadSettingFlag("bBFHL");
    Publish();
    CModulePage::OnInitDialog();
    if (ChartMode == kSampleCharts) {
        GetDlgItem(IDC_RECOMPUTE)->EnableWindow(FALSE);
    }
    return TRUE;
}

void COptionPage::OnOK() {
    if (!UpdateData(TRUE)) {
        return;
    }
    Publish();
    WriteSettingFlag("bZB", rightAxis_ != 0);
    WriteSettingFlag("bJWKX", outerFrame_ != 0);
    WriteSettingFlag("bBFHL", recompute_ != 0);
    CModulePage::OnOK();
}

void COptionPage::DoDataExchange(CDataExchange* pDX) {
    CModulePage::DoDataExchange(pDX);
    DDX_Check(pDX, IDC_OUTER_FRAME, outerFrame_);
    DDX_Check(pDX, IDC_RIGHT_AXIS, rightAxis_);
    DDX_Check(pDX, IDC_RECOMPUTE, recompute_);
}

void COptionPage::Publish() const {
    RightAxisOption = rightAxis_ != 0;
    OuterFrameOption = outerFrame_ != 0;
}
