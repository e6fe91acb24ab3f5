#pragma once

#include "src/ui/CChartBrowser.h"

/// The sample sheets of one borehole at a time. CurrentBorehole is the first borehole of the list,
/// or the one whose sheets were just made.
class CSampleBrowser : public CChartBrowser {
public:
    explicit CSampleBrowser(std::string chartFolder, CWnd* parent = nullptr);

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    void ShowMadeSheets() override;
    void ShowStoredSheets() override;
    afx_msg void OnSelchangeBorehole();
    DECLARE_MESSAGE_MAP()

private:
    CListBox boreholes_;
};
