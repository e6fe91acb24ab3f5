#include "platform/mfc/CPropertySheet.h"

#include "platform/mfc/SheetModel.h"
#include "platform/mfc/window_system.h"

CPropertySheet::CPropertySheet(UINT captionNumber, CWnd* /*parent*/, UINT firstPage) {
    caption_.LoadString(captionNumber);
    m_psh.nStartPage = firstPage;
}

CPropertySheet::CPropertySheet(const char* caption, CWnd* /*parent*/, UINT firstPage)
    : caption_(caption) {
    m_psh.nStartPage = firstPage;
}

CPropertySheet::~CPropertySheet() {
    DestroySheet();
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    pages_.push_back(page);
}

int CPropertySheet::GetActiveIndex() const {
    return sheet_ && sheet_->ActivePage() >= 0 ? sheet_->ActivePage()
                                               : static_cast<int>(m_psh.nStartPage);
}

CPropertyPage* CPropertySheet::GetActivePage() const {
    return GetPage(GetActiveIndex());
}

BOOL CPropertySheet::SetActivePage(int index) {
    if (index < 0 || index >= GetPageCount()) {
        return FALSE;
    }
    if (!sheet_) {
        m_psh.nStartPage = static_cast<UINT>(index);
        return TRUE;
    }
    CreatePage(static_cast<std::size_t>(index));
    sheet_->SetActivePage(static_cast<std::size_t>(index));
    return TRUE;
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page) {
    for (int i = 0; i < GetPageCount(); ++i) {
        if (GetPage(i) == page) {
            return SetActivePage(i);
        }
    }
    return FALSE;
}

bool CPropertySheet::MakeSheet() {
    std::vector<mfc::SheetModel::Tab> tabs;
    for (const CPropertyPage* page : pages_) {
        const LPCDLGTEMPLATE pageTemplate = page->Template();
        if (pageTemplate == nullptr) {
            return false;
        }
        const mfc::DialogDescription& description = *pageTemplate->description;
        tabs.push_back({description.number, description.caption, description.rect});
    }
    if (tabs.empty()) {
        return false;
    }
    sheet_ = std::make_unique<mfc::SheetModel>(
        static_cast<const char*>(caption_), std::move(tabs), (m_psh.dwFlags & PSH_NOAPPLYNOW) == 0,
        (m_psh.dwFlags & PSH_HASHELP) != 0,
        [this](std::size_t index) { SetActivePage(static_cast<int>(index)); });
    AttachModel(*sheet_);
    return true;
}

void CPropertySheet::CreatePage(std::size_t index) {
    if (sheet_->Tabs()[index].page != nullptr) {
        return;
    }
    CPropertyPage& page = *pages_[index];
    auto dialog = std::make_unique<mfc::DialogModel>(*page.Template()->description, sheet_.get());
    sheet_->SetPage(index, dialog.get());
    page.CreateFrom(std::move(dialog));
}

void CPropertySheet::DestroySheet() {
    if (!sheet_) {
        return;
    }
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (sheet_->Tabs()[i].page != nullptr) {
            pages_[i]->DestroyDialog();
        }
    }
    sheet_.reset();
}

int CPropertySheet::DoModal() {
    if (!MakeSheet()) {
        return -1;
    }
    const struct DestroyAtEnd {
        CPropertySheet& sheet;
        ~DestroyAtEnd() { sheet.DestroySheet(); }
    } destroyAtEnd{*this};
    OnInitDialog();
    if (!sheet_->Ended()) {
        mfc::CurrentWindowSystem().RunModal(*sheet_);
    }
    return sheet_->Ended() ? sheet_->Result() : IDCANCEL;
}

void CPropertySheet::EndDialog(int result) {
    dynamic_cast<mfc::FrameModel&>(RequireModel()).End(result);
}

BOOL CPropertySheet::OnInitDialog() {
    if (SetActivePage(static_cast<int>(m_psh.nStartPage)) == FALSE) {
        SetActivePage(0);
    }
    return TRUE;
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam) != FALSE) {
        return TRUE;
    }
    if (wParam == MAKEWPARAM(IDOK, BN_CLICKED)) {
        AcceptPages();
        return TRUE;
    }
    if (wParam == MAKEWPARAM(IDCANCEL, BN_CLICKED)) {
        CancelPages();
        return TRUE;
    }
    return FALSE;
}

void CPropertySheet::AcceptPages() {
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (sheet_->Tabs()[i].page == nullptr) {
            continue;
        }
        pages_[i]->accepted_ = false;
        pages_[i]->OnOK();
        if (sheet_->Ended()) {
            return;
        }
        if (!pages_[i]->accepted_) {
            SetActivePage(static_cast<int>(i));
            return;
        }
    }
    sheet_->End(IDOK);
}

void CPropertySheet::CancelPages() {
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (sheet_->Tabs()[i].page != nullptr) {
            pages_[i]->OnCancel();
        }
    }
    sheet_->End(IDCANCEL);
}
