#pragma once

#include <string>
#include <vector>

#include "platform/mfc/CDialog.h"
#include "platform/mfc/CListBox.h"

/// How sheets of one kind are named to the user: the file name's prefix gives way to a word.
struct SheetLabels {
    const char* filePrefix;
    const char* word;  ///< GBK
};

/// Lets the user choose sheets, by their labels, from a list. With OpenedFromChartCommand the list
/// holds MadeSheets, else what a derived browser finds in the chart folder. OK leaves the chosen
/// file names, without extension and joined by "|", in LastSheetPath.
class CChartBrowser : public CDialog {
public:
    BOOL OnInitDialog() override;

protected:
    CChartBrowser(WORD dialogNumber, SheetLabels labels, std::string chartFolder, CWnd* parent);

    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;

    /// The command has just made sheets, which are listed already.
    virtual void ShowMadeSheets() {}
    /// Nothing is listed yet.
    virtual void ShowStoredSheets() = 0;
    /// Lists the chart folder's files that match the pattern instead of what is listed; none for a
    /// pattern that leads to another folder.
    void ListSheets(const std::string& pattern);

private:
    void AddSheet(const std::string& fileName);

    SheetLabels labels_;
    std::string chartFolder_;
    CListBox sheets_;
    std::vector<std::string> fileNames_;  ///< without extension, in the order of the list
};

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

/// The layer sheets of the project.
class CLayerBrowser : public CChartBrowser {
public:
    explicit CLayerBrowser(std::string chartFolder, CWnd* parent = nullptr);

protected:
    void ShowStoredSheets() override;
};
