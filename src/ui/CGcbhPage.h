#pragma once

#include <string>
#include <vector>

#include "platform/mfc/CListBox.h"
#include "src/core/sample_and_sheet_names.h"
#include "src/ui/CModulePage.h"

/// Choice of one borehole and any number of its samples. CurrentBorehole is the borehole shown.
/// What is chosen is marked as drawn when the sheet closes with OK.
class CGcbhPage : public CModulePage {
public:
    CGcbhPage();

    /// The chosen sample numbers, without marks, in list order; filled when the page accepts.
    const std::vector<std::string>& ChosenSamples() const { return chosenSamples_; }
    /// Needs the page's window.
    bool HasSelectedSample() const { return samples_.GetSelCount() > 0; }
    /// Why what is selected cannot be drawn, for a message box; empty when it can. As
    /// HasSelectedSample.
    std::string Objection() const;

    BOOL OnInitDialog() override;
    void OnOK() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnSelchangeBorehole();
    afx_msg void OnRemoveMarks();
    DECLARE_MESSAGE_MAP()

private:
    void StoreMarks();

    CListBox boreholes_;
    CListBox samples_;
    std::vector<SampleKey> projectSamples_;  ///< all with test items, as the database names them
    std::vector<std::string> chosenSamples_;
};
