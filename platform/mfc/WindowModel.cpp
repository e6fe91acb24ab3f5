#include "platform/mfc/WindowModel.h"

#include <map>
#include <utility>

#include "platform/mfc/CButton.h"
#include "platform/mfc/CDateTimeCtrl.h"
#include "platform/mfc/CEdit.h"
#include "platform/mfc/CListBox.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/window_message.h"

namespace mfc {
namespace {

std::map<HWND, WindowModel*>& Models() {
    static std::map<HWND, WindowModel*> models;
    return models;
}

std::unique_ptr<CWnd> MakeWnd(WindowKind kind) {
    switch (kind) {
        case WindowKind::Edit:
            return std::make_unique<CEdit>();
        case WindowKind::PushButton:
        case WindowKind::CheckBox:
            return std::make_unique<CButton>();
        case WindowKind::ListBox:
            return std::make_unique<CListBox>();
        case WindowKind::DatePicker:
            return std::make_unique<CDateTimeCtrl>();
        default:
            return std::make_unique<CWnd>();
    }
}

}  // namespace

WindowModel* FindModel(HWND window) {
    const auto found = Models().find(window);
    return found == Models().end() ? nullptr : found->second;
}

WindowModel::WindowModel(WindowKind kind, WindowModel* parent, int id, DWORD style,
                         const DialogRect& rect, std::string text)
    : kind_(kind),
      parent_(parent),
      id_(id),
      style_(style),
      rect_(rect),
      text_(std::move(text)),
      enabled_((style & WS_DISABLED) == 0),
      handle_(win32::CreateWindow([this](UINT message, WPARAM wParam, LPARAM lParam) {
          return Wnd().WindowProc(message, wParam, lParam);
      })) {
    Models().emplace(handle_, this);
}

WindowModel::~WindowModel() {
    if (attached_ != nullptr) {
        attached_->DetachModel();
    }
    if (own_) {
        own_->DetachModel();
    }
    Models().erase(handle_);
    win32::DestroyWindow(handle_);
}

void WindowModel::SetText(std::string text) {
    if (text != text_) {
        text_ = std::move(text);
        Changed(Change::Text);
    }
}

bool WindowModel::Type(std::string text) {
    if (kind_ != WindowKind::Edit || !Operable()) {
        return false;
    }
    SetText(std::move(text));
    return true;
}

void WindowModel::SetEnabled(bool enabled) {
    if (enabled != enabled_) {
        enabled_ = enabled;
        Changed(Change::Enabled);
    }
}

bool WindowModel::Operable() const {
    return enabled_ && (parent_ == nullptr || parent_->Operable());
}

CWnd& WindowModel::Wnd() {
    if (attached_ != nullptr) {
        return *attached_;
    }
    own_ = MakeWnd(kind_);
    own_->AttachModel(*this);
    return *own_;
}

void WindowModel::Attach(CWnd* object) {
    if (attached_ != nullptr && attached_ != own_.get()) {
        attached_->DetachModel();
    }
    attached_ = object;
}

void WindowModel::Detach(const CWnd* object) {
    if (attached_ == object) {
        attached_ = own_.get() == object ? nullptr : own_.get();
    }
}

void WindowModel::Changed(Change change) {
    OnChanged(*this, change);
}

void WindowModel::OnChanged(WindowModel& window, Change change) {
    if (parent_ != nullptr) {
        parent_->OnChanged(window, change);
    }
}

void WindowModel::Notify(int code) {
    if (parent_ != nullptr) {
        SendMessage(parent_->Handle(), WM_COMMAND,
                    MAKEWPARAM(static_cast<UINT>(id_), static_cast<UINT>(code)),
                    reinterpret_cast<LPARAM>(handle_));
    }
}

}  // namespace mfc
