#include "platform/mfc/FrameModel.h"

#include "platform/mfc/CCmdTarget.h"
#include "platform/win32/window_message.h"

namespace mfc {

FrameModel::FrameModel(WindowKind kind, WindowModel* parent, DWORD style, const DialogRect& rect,
                       std::string caption)
    : WindowModel(kind, parent, 0, style, rect, std::move(caption)) {}

void FrameModel::End(int result) {
    if (!ended_) {
        ended_ = true;
        result_ = result;
        Changed(Change::Ended);
    }
}

void FrameModel::SetIcon(HICON icon, bool big) {
    (big ? bigIcon_ : smallIcon_) = icon;
    Changed(Change::Icon);
}

bool FrameModel::Command(int id) {
    if (!Operable()) {
        return false;
    }
    SendMessage(Handle(), WM_COMMAND, MAKEWPARAM(static_cast<UINT>(id), BN_CLICKED), 0);
    return true;
}

void FrameModel::OnChanged(WindowModel& window, Change change) {
    if (listener_) {
        listener_(window, change);
    }
    WindowModel::OnChanged(window, change);
}

}  // namespace mfc
