#pragma once

#include "src/ui/CChartBrowser.h"

/// The layer sheets of the project.
class CLayerBrowser : public CChartBrowser {
public:
    explicit CLayerBrowser(std::string chartFolder, CWnd* parent = nullptr);

protected:
    void ShowStoredSheets() override;
};
