#pragma once

#include "platform/mfc/CPropertySheet.h"
#include "src/ui/CBzhPage.h"
#include "src/ui/CGcbhPage.h"
#include "src/ui/CGcbhSJPage.h"
#include "src/ui/COptionPage.h"

/// What a chart command asks the user. ChartMode decides, when the sheet is made, whether its first
/// page is for samples or for layers. It closes with OK only once something is selected there.
class CKefenSheet : public CPropertySheet {
public:
    explicit CKefenSheet(UINT captionNumber, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CKefenSheet(const char* caption, CWnd* parent = nullptr, UINT firstPage = 0);

    const CGcbhPage& SamplePage() const { return samplePage_; }
    const CGcbhSJPage& LayerPage() const { return layerPage_; }
    const COptionPage& OptionPage() const { return optionPage_; }

    BOOL OnInitDialog() override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

private:
    void AddPages();
    CPropertyPage* SelectionPage();
    std::string Objection() const;

    CGcbhPage samplePage_;
    CGcbhSJPage layerPage_;
    CBzhPage annotationPage_;
    COptionPage optionPage_;
};
