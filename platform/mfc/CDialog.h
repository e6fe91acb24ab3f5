#pragma once

#include <memory>

#include "platform/mfc/CWnd.h"
#include "platform/mfc/resources.h"

namespace mfc {
class DialogModel;
}

/// A dialog made from a template. Its controls exist while it is shown.
class CDialog : public CWnd {
public:
    /// A dialog whose template is set by InitModalIndirect.
    CDialog();
    /// A dialog with template `number` of the current resources (as they are when it is shown).
    explicit CDialog(WORD number, CWnd* parent = nullptr);
    ~CDialog() override;

    /// The template must live as long as the dialog. TRUE.
    BOOL InitModalIndirect(LPCDLGTEMPLATE dialogTemplate, CWnd* parent = nullptr);

    /// Shows the dialog and returns what EndDialog was given, IDOK or IDCANCEL as a rule;
    /// -1 when the template is not found.
    virtual int DoModal();
    /// Closes the dialog once the handler that calls it is done.
    void EndDialog(int result);

    /// Called once the controls exist. The default shows the fields (UpdateData(FALSE)).
    /// FALSE: the focus was set by the handler.
    virtual BOOL OnInitDialog();

protected:
    /// The default closes the dialog with IDOK unless the data exchange fails.
    virtual void OnOK();
    /// The default closes the dialog with IDCANCEL.
    virtual void OnCancel();

    /// The template in use; null when it is not found.
    virtual LPCDLGTEMPLATE Template() const;
    /// Makes the window with its controls and runs OnInitDialog.
    void CreateFrom(std::unique_ptr<mfc::DialogModel> dialog);
    void DestroyDialog();

private:
    WORD number_ = 0;
    LPCDLGTEMPLATE template_ = nullptr;
    std::unique_ptr<mfc::DialogModel> dialog_;

    DECLARE_MESSAGE_MAP()
};
