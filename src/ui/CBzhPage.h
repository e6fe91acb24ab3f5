#pragma once

#include "platform/mfc/CTime.h"
#include "src/ui/CModulePage.h"

/// What stands in the title blocks. Texts and check boxes come from the settings profile and go
/// back to it when the sheet closes with OK; the date starts at the present and is not kept.
/// Annotation holds all of it from the moment the page is made.
class CBzhPage : public CModulePage {
public:
    CBzhPage();

    BOOL OnInitDialog() override;
    void OnOK() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

private:
    void Publish() const;

    CString unit_;
    CString tester_;
    CString checker_;
    CTime date_;
    int unitChecked_ = 0;
    int testerChecked_ = 0;
    int checkerChecked_ = 0;
    int dateChecked_ = 0;
};
