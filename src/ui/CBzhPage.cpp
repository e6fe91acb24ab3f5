#include "src/ui/CBzhPage.h"

#include "platform/mfc/CDataExchange.h"
#include "src/common/module_state.h"
#include "src/facts/control_ids.h"
#include "src/ui/settings.h"

CBzhPage::CBzhPage() : CModulePage(IDD_ANNOTATION), date_(CTime::GetCurrentTime()) {}

BOOL CBzhPage::OnInitDialog() {
    unitChecked_ = ReadSettingFlag("bWCDW");
    testerChecked_ = ReadSettingFlag("bSYZ");
    checkerChecked_ = ReadSettingFlag("bJCZ");
    dateChecked_ = ReadSettingFlag("bRQ");
    unit_ = ReadSettingText("sWCDW").c_str();
    tester_ = ReadSettingText("sSYZ").c_str();
    checker_ = ReadSettingText("sJCZ").c_str();
    Publish();
    return CModulePage::OnInitDialog();
}

void CBzhPage::OnOK() {
    if (!UpdateData(TRUE)) {
        return;
    }
    Publish();
    WriteSettingFlag("bWCDW", Annotation.unitChecked);
    WriteSettingFlag("bSYZ", Annotation.testerChecked);
    WriteSettingFlag("bJCZ", Annotation.checkerChecked);
    WriteSettingFlag("bRQ", Annotation.dateChecked);
    WriteSettingText("sWCDW", Annotation.unit);
    WriteSettingText("sSYZ", Annotation.tester);
    WriteSettingText("sJCZ", Annotation.checker);
    CModulePage::OnOK();
}

void CBzhPage::DoDataExchange(CDataExchange* pDX) {
    CModulePage::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_UNIT, unit_);
    DDX_Text(pDX, IDC_TESTER, tester_);
    DDX_Text(pDX, IDC_CHECKER, checker_);
    DDX_DateTimeCtrl(pDX, IDC_DATE, date_);
    DDX_Check(pDX, IDC_UNIT_CHECK, unitChecked_);
    DDX_Check(pDX, IDC_TESTER_CHECK, testerChecked_);
    DDX_Check(pDX, IDC_CHECKER_CHECK, checkerChecked_);
    DDX_Check(pDX, IDC_DATE_CHECK, dateChecked_);
}

void CBzhPage::Publish() const {
    Annotation = {.unitChecked = unitChecked_ != 0,
                  .testerChecked = testerChecked_ != 0,
                  .checkerChecked = checkerChecked_ != 0,
                  .dateChecked = dateChecked_ != 0,
                  .unit = static_cast<const char*>(unit_),
                  .tester = static_cast<const char*>(tester_),
                  .checker = static_cast<const char*>(checker_),
                  .date = date_.GetTime()};
}
