#pragma once

#include <stdexcept>

#include "platform/mfc/CTime.h"
#include "platform/mfc/CWnd.h"

namespace mfc {

/// Ends a data exchange; UpdateData catches it.
class ExchangeFailed : public std::runtime_error {
public:
    ExchangeFailed() : std::runtime_error("the data exchange failed") {}
};

}  // namespace mfc

/// One pass of data between a window's fields and its controls.
class CDataExchange {
public:
    CDataExchange(CWnd* window, BOOL save) : m_bSaveAndValidate(save), m_pDlgWnd(window) {}

    BOOL m_bSaveAndValidate;  ///< TRUE: from the controls to the fields
    CWnd* m_pDlgWnd;

    /// Ends the exchange: UpdateData returns FALSE.
    [[noreturn]] void Fail();
};

/// Attaches `control` to the window of that id, once. These functions throw std::logic_error for
/// an id the window does not have, or a control of another kind than they exchange.
void DDX_Control(CDataExchange* pDX, int id, CWnd& control);
void DDX_Text(CDataExchange* pDX, int id, CString& value);
/// 0 or 1.
void DDX_Check(CDataExchange* pDX, int id, int& value);
/// The text of a single-selection list's selected item, empty for none; to the list: selects the
/// first item that begins with it, and changes nothing when there is none.
void DDX_LBString(CDataExchange* pDX, int id, CString& value);
void DDX_DateTimeCtrl(CDataExchange* pDX, int id, CTime& value);
