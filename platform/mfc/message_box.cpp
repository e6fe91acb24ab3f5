#include "platform/mfc/message_box.h"

#include "platform/mfc/window_system.h"
#include "platform/win32/window_message.h"

int AfxMessageBox(const char* text, UINT type, UINT /*helpId*/) {
    return MessageBox(win32::MainWindow(), text, nullptr, type);
}

int MessageBox(HWND owner, const char* text, const char* caption, UINT type) {
    return mfc::CurrentWindowSystem().ShowMessageBox(
        {text == nullptr ? "" : text, caption == nullptr ? "" : caption, type, owner});
}
