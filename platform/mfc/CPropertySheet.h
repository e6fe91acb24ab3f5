#pragma once

#include <memory>
#include <vector>

#include "platform/mfc/CPropertyPage.h"
#include "platform/mfc/CWnd.h"

namespace mfc {
class SheetModel;
}

inline constexpr DWORD PSH_NOAPPLYNOW = 0x80;
inline constexpr DWORD PSH_HASHELP = 0x200;

struct PROPSHEETHEADER {
    DWORD dwFlags;
    UINT nStartPage;  ///< index of the page that is in front at first
};

/// A modal sheet of pages with an OK and a Cancel button.
class CPropertySheet : public CWnd {
public:
    /// Caption: string resource `captionNumber` of the current resources.
    explicit CPropertySheet(UINT captionNumber, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CPropertySheet(const char* caption, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CPropertySheet() override;

    PROPSHEETHEADER m_psh{};

    /// The page stays its owner's and must outlive the sheet's showing. Before DoModal only.
    void AddPage(CPropertyPage* page);
    int GetPageCount() const { return static_cast<int>(pages_.size()); }
    CPropertyPage* GetPage(int index) const { return pages_.at(static_cast<std::size_t>(index)); }
    int GetActiveIndex() const;
    CPropertyPage* GetActivePage() const;
    /// Brings a page to the front, making its window if it has none. FALSE for no page of the
    /// sheet. Before DoModal it sets the page that is shown first.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page);

    /// Shows the sheet. IDOK when every page that was made accepted, IDCANCEL, or what EndDialog
    /// was given; -1 when a page's template is not found or there is no page.
    virtual int DoModal();
    void EndDialog(int result);

    /// The default brings the first page to the front.
    virtual BOOL OnInitDialog();

protected:
    /// IDOK and IDCANCEL come here as to any window: through OnCmdMsg, and close the sheet
    /// (OnOK or OnCancel of every page that was made) only if that does not handle them.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    bool MakeSheet();
    void CreatePage(std::size_t index);
    void AcceptPages();
    void CancelPages();
    void DestroySheet();

    CString caption_;
    std::vector<CPropertyPage*> pages_;
    std::unique_ptr<mfc::SheetModel> sheet_;
};
