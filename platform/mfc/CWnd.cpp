#include "platform/mfc/CWnd.h"

#include <map>
#include <memory>
#include <stdexcept>

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/DialogModel.h"
#include "platform/mfc/SheetModel.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/window_message.h"

CWnd::~CWnd() {
    DetachModel();
}

CWnd* CWnd::FromHandle(HWND window) {
    if (window == nullptr) {
        return nullptr;
    }
    if (mfc::WindowModel* model = mfc::FindModel(window)) {
        return &model->Wnd();
    }
    static std::map<HWND, std::unique_ptr<CWnd>> foreign;
    std::unique_ptr<CWnd>& object = foreign[window];
    if (!object) {
        object = std::make_unique<CWnd>();
        object->m_hWnd = window;
    }
    return object.get();
}

void CWnd::AttachModel(mfc::WindowModel& model) {
    DetachModel();
    model_ = &model;
    m_hWnd = model.Handle();
    model.Attach(this);
}

void CWnd::DetachModel() {
    if (model_ != nullptr) {
        mfc::WindowModel* model = model_;
        model_ = nullptr;
        m_hWnd = nullptr;
        model->Detach(this);
    }
}

mfc::WindowModel& CWnd::RequireModel() const {
    if (model_ == nullptr) {
        throw std::logic_error("an operation on a window that does not exist");
    }
    return *model_;
}

CWnd* CWnd::GetDlgItem(int id) const {
    const auto* dialog = dynamic_cast<const mfc::DialogModel*>(&RequireModel());
    mfc::WindowModel* control = dialog == nullptr ? nullptr : dialog->Find(id);
    return control == nullptr ? nullptr : &control->Wnd();
}

CWnd* CWnd::GetParent() const {
    mfc::WindowModel* parent = RequireModel().Parent();
    return parent == nullptr ? nullptr : &parent->Wnd();
}

void CWnd::SetWindowText(const char* text) {
    RequireModel().SetText(text == nullptr ? "" : text);
}

void CWnd::GetWindowText(CString& text) const {
    text = RequireModel().Text().c_str();
}

BOOL CWnd::EnableWindow(BOOL enable) {
    const bool wasEnabled = RequireModel().Enabled();
    RequireModel().SetEnabled(enable != FALSE);
    return wasEnabled ? FALSE : TRUE;
}

CWnd* CWnd::SetFocus() {
    if (auto* dialog = dynamic_cast<mfc::DialogModel*>(RequireModel().Parent())) {
        dialog->SetFocus(model_);
    }
    return nullptr;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

int CWnd::MessageBox(const char* text, const char* caption, UINT type) {
    return ::MessageBox(m_hWnd, text, caption, type);
}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (const mfc::ExchangeFailed&) {
        return FALSE;
    }
    return TRUE;
}

void CWnd::DoDataExchange(CDataExchange* /*pDX*/) {}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        return OnCommand(wParam, lParam);
    }
    auto* frame = dynamic_cast<mfc::FrameModel*>(model_);
    if (message == WM_SETICON && frame != nullptr) {
        const bool big = wParam == ICON_BIG;
        const HICON before = frame->Icon(big);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry handles as numbers
        frame->SetIcon(reinterpret_cast<HICON>(lParam), big);
        return reinterpret_cast<LRESULT>(before);
    }
    return 0;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM /*lParam*/) {
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr, nullptr);
}
