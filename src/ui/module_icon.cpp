#include "src/ui/module_icon.h"

#include "platform/mfc/CWnd.h"
#include "platform/mfc/resources.h"
#include "platform/win32/window_message.h"
#include "src/common/module_state.h"
#include "src/facts/control_ids.h"

void SetModuleIcon(CWnd& window) {
    HICON const icon =
        LoadIcon(ExtensionModule.ModuleResourceInstance(), MAKEINTRESOURCE(IDI_GRDX));
    window.SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    window.SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}
