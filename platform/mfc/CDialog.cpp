#include "platform/mfc/CDialog.h"

#include "platform/mfc/DialogModel.h"
#include "platform/mfc/afx.h"
#include "platform/mfc/window_system.h"

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_BN_CLICKED(IDOK, OnOK)
ON_BN_CLICKED(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog() = default;

CDialog::CDialog(WORD number, CWnd* /*parent*/) : number_(number) {}

CDialog::~CDialog() {
    DestroyDialog();
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE dialogTemplate, CWnd* /*parent*/) {
    template_ = dialogTemplate;
    return TRUE;
}

LPCDLGTEMPLATE CDialog::Template() const {
    if (template_ != nullptr) {
        return template_;
    }
    const HINSTANCE module = AfxGetResourceHandle();
    const HRSRC found = FindResource(module, MAKEINTRESOURCE(number_), RT_DIALOG);
    return static_cast<LPCDLGTEMPLATE>(LockResource(LoadResource(module, found)));
}

void CDialog::CreateFrom(std::unique_ptr<mfc::DialogModel> dialog) {
    dialog_ = std::move(dialog);
    AttachModel(*dialog_);
    if (OnInitDialog() != FALSE) {
        dialog_->FocusFirst();
    }
}

void CDialog::DestroyDialog() {
    dialog_.reset();
}

int CDialog::DoModal() {
    const LPCDLGTEMPLATE dialogTemplate = Template();
    if (dialogTemplate == nullptr) {
        return -1;
    }
    const struct DestroyAtEnd {
        CDialog& dialog;
        ~DestroyAtEnd() { dialog.DestroyDialog(); }
    } destroyAtEnd{*this};
    CreateFrom(std::make_unique<mfc::DialogModel>(*dialogTemplate->description, nullptr));
    if (!dialog_->Ended()) {
        mfc::CurrentWindowSystem().RunModal(*dialog_);
    }
    return dialog_->Ended() ? dialog_->Result() : IDCANCEL;
}

void CDialog::EndDialog(int result) {
    dynamic_cast<mfc::FrameModel&>(RequireModel()).End(result);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE) != FALSE) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}
