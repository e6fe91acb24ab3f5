#pragma once

#include "platform/mfc/CCmdTarget.h"
#include "platform/mfc/CString.h"
#include "platform/win32/win_types.h"

class CDataExchange;
namespace mfc {
class WindowModel;
}

/// A window as code sees it: an object that is attached to a window for as long as the window
/// lives. Operations on an object without a window throw std::logic_error, unless said otherwise.
class CWnd : public CCmdTarget {
public:
    CWnd() = default;
    ~CWnd() override;

    /// Null without a window.
    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// The object attached to a window of this layer, or one made for any other window, which
    /// lives to the end of the program. Null for null.
    static CWnd* FromHandle(HWND window);

    /// The control of that id, of the class of its kind; null when there is none.
    CWnd* GetDlgItem(int id) const;
    CWnd* GetParent() const;

    void SetWindowText(const char* text);
    void GetWindowText(CString& text) const;
    /// Returns nonzero if the window was disabled before.
    BOOL EnableWindow(BOOL enable = TRUE);
    /// Returns null: which window had the focus before is not told.
    CWnd* SetFocus();
    /// 0 without a window.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    int MessageBox(const char* text, const char* caption = nullptr, UINT type = 0);

    /// Runs DoDataExchange from the controls (TRUE) or to them (FALSE). FALSE when it failed.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    /// What the window does with a message; WM_COMMAND comes to OnCommand.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// For the layer: state of the window, null when it is not one of this layer's.
    mfc::WindowModel* Model() const { return model_; }
    void AttachModel(mfc::WindowModel& model);
    void DetachModel();

protected:
    virtual void DoDataExchange(CDataExchange* pDX);
    /// Low word of `wParam`: id, high word: notification code. Routes through OnCmdMsg.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    mfc::WindowModel& RequireModel() const;

private:
    mfc::WindowModel* model_ = nullptr;
};
