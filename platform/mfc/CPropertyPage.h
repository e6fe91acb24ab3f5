#pragma once

#include "platform/mfc/CDialog.h"

inline constexpr DWORD PSP_DLGINDIRECT = 0x1;
inline constexpr DWORD PSP_HASHELP = 0x20;

struct PROPSHEETPAGE {
    DWORD dwFlags;
    LPCDLGTEMPLATE pResource;  ///< used with PSP_DLGINDIRECT; must live as long as the page
};

/// A page of a property sheet. Its window is made the first time the page comes to the front and
/// goes with the sheet.
class CPropertyPage : public CDialog {
public:
    /// A page whose template is set by m_psp.pResource or InitModalIndirect.
    CPropertyPage();
    /// A page with template `number` of the current resources.
    explicit CPropertyPage(WORD number);

    PROPSHEETPAGE m_psp{};

    /// The sheet is closing with OK. Accepts: an override that returns without calling this keeps
    /// the sheet open, with this page in front.
    void OnOK() override;
    /// The sheet is closing without OK.
    void OnCancel() override;

protected:
    LPCDLGTEMPLATE Template() const override;

private:
    friend class CPropertySheet;
    bool accepted_ = false;
};
