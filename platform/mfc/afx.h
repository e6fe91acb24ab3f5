#pragma once

#include "platform/mfc/CWnd.h"
#include "platform/win32/win_types.h"

/// The program's main window; null while the host has set none.
CWnd* AfxGetMainWnd();

/// The module whose resources dialogs, icons and strings are taken from at present. Null at the
/// start: no resources.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE module);
