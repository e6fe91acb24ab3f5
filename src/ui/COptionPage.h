#pragma once

#include "src/ui/CModulePage.h"

/// How the charts are drawn. The choices come from the settings profile and go back to it when the
/// sheet closes with OK; outer frame and right-hand axis are module-wide from then on.
class COptionPage : public CModulePage {
public:
    COptionPage();

    /// Layer charts only: the percentages are scaled to a sum of 100. In sample charts it is what
    /// the profile holds and cannot be changed.
    bool Recompute() const { return recompute_ != 0; }

    BOOL OnInitDialog() override;
    void OnOK() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

private:
    void Publish() const;

    int outerFrame_ = 0;
    int rightAxis_ = 0;
    int recompute_ = 0;
};
