#include "platform/mfc/CPropertyPage.h"

CPropertyPage::CPropertyPage() = default;

CPropertyPage::CPropertyPage(WORD number) : CDialog(number) {}

LPCDLGTEMPLATE CPropertyPage::Template() const {
    const bool indirect = (m_psp.dwFlags & PSP_DLGINDIRECT) != 0 && m_psp.pResource != nullptr;
    return indirect ? m_psp.pResource : CDialog::Template();
}

void CPropertyPage::OnOK() {
    accepted_ = true;
}

void CPropertyPage::OnCancel() {}
