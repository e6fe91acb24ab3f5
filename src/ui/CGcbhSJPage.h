#pragma once

#include <string>
#include <vector>

#include "platform/mfc/CListBox.h"
#include "src/core/sample_and_sheet_names.h"
#include "src/ui/CModulePage.h"

/// Choice of any number of soil layers that have design values. What is chosen is marked as drawn
/// when the sheet closes with OK.
class CGcbhSJPage : public CModulePage {
public:
    CGcbhSJPage();

    /// The chosen layers' labels, without marks, in list order; filled when the page accepts.
    const std::vector<std::string>& ChosenLayers() const { return chosenLayers_; }
    /// Needs the page's window.
    bool HasSelectedLayer() const { return layers_.GetSelCount() > 0; }
    /// Why what is selected cannot be drawn, for a message box; empty when it can. As
    /// HasSelectedLayer.
    std::string Objection() const;

    BOOL OnInitDialog() override;
    void OnOK() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnRemoveMarks();
    DECLARE_MESSAGE_MAP()

private:
    CListBox layers_;
    std::vector<std::string> projectLayers_;
    std::vector<SampleKey> rivals_;  ///< samples whose sheets' names may look like those of layers
    std::vector<std::string> chosenLayers_;
};
