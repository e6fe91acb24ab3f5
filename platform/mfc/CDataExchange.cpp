#include "platform/mfc/CDataExchange.h"

#include <stdexcept>
#include <string>

#include "platform/mfc/CButton.h"
#include "platform/mfc/CDateTimeCtrl.h"
#include "platform/mfc/CListBox.h"
#include "platform/mfc/WindowModel.h"

namespace {

template <class Control>
Control& ControlOf(const CDataExchange& exchange, int id) {
    CWnd* window = exchange.m_pDlgWnd->GetDlgItem(id);
    if (window == nullptr) {
        throw std::logic_error("data exchange: there is no control " + std::to_string(id));
    }
    auto* control = dynamic_cast<Control*>(window);
    if (control == nullptr) {
        throw std::logic_error("data exchange: control " + std::to_string(id) +
                               " is of another kind");
    }
    return *control;
}

}  // namespace

void CDataExchange::Fail() {
    throw mfc::ExchangeFailed();
}

void DDX_Control(CDataExchange* pDX, int id, CWnd& control) {
    if (control.m_hWnd == nullptr) {
        control.AttachModel(*ControlOf<CWnd>(*pDX, id).Model());
    }
}

void DDX_Text(CDataExchange* pDX, int id, CString& value) {
    CWnd& control = ControlOf<CWnd>(*pDX, id);
    if (pDX->m_bSaveAndValidate != FALSE) {
        control.GetWindowText(value);
    } else {
        control.SetWindowText(value);
    }
}

void DDX_Check(CDataExchange* pDX, int id, int& value) {
    CButton& control = ControlOf<CButton>(*pDX, id);
    if (pDX->m_bSaveAndValidate != FALSE) {
        value = control.GetCheck();
    } else {
        control.SetCheck(value);
    }
}

void DDX_LBString(CDataExchange* pDX, int id, CString& value) {
    CListBox& control = ControlOf<CListBox>(*pDX, id);
    if (pDX->m_bSaveAndValidate != FALSE) {
        control.GetText(control.GetCurSel(), value);
    } else {
        control.SelectString(-1, value);
    }
}

void DDX_DateTimeCtrl(CDataExchange* pDX, int id, CTime& value) {
    CDateTimeCtrl& control = ControlOf<CDateTimeCtrl>(*pDX, id);
    if (pDX->m_bSaveAndValidate != FALSE) {
        control.GetTime(value);
    } else {
        control.SetTime(&value);
    }
}
