#include "platform/mfc/CCmdTarget.h"

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* /*pExtra*/,
                          AFX_CMDHANDLERINFO* /*pHandlerInfo*/) {
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap()) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry) {
            if (entry->nID == nID && entry->nCode == nCode) {
                (this->*entry->pfn)();
                return TRUE;
            }
        }
    }
    return FALSE;
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, entries};
    return &messageMap;
}
