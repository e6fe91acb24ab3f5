#include "platform/mfc/afx.h"

#include "platform/win32/window_message.h"

namespace {
HINSTANCE resourceHandle = nullptr;
}

CWnd* AfxGetMainWnd() {
    return CWnd::FromHandle(win32::MainWindow());
}

HINSTANCE AfxGetResourceHandle() {
    return resourceHandle;
}
void AfxSetResourceHandle(HINSTANCE module) {
    resourceHandle = module;
}
