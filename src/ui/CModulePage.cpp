#include "src/ui/CModulePage.h"

#include "src/common/module_state.h"

namespace {

std::vector<std::byte> CopyTemplate(HMODULE module, WORD dialogNumber) {
    HRSRC const resource = FindResource(module, MAKEINTRESOURCE(dialogNumber), RT_DIALOG);
    const auto* const bytes =
        static_cast<const std::byte*>(LockResource(LoadResource(module, resource)));
    return {bytes, bytes + SizeofResource(module, resource)};
}

}  // namespace

CModulePage::CModulePage(WORD dialogNumber)
    : templateCopy_(CopyTemplate(ExtensionModule.ModuleResourceInstance(), dialogNumber)) {
    if (templateCopy_.empty()) {
        return;
    }
    const auto* const dialogTemplate = reinterpret_cast<LPCDLGTEMPLATE>(templateCopy_.data());
    InitModalIndirect(dialogTemplate);
    m_psp.dwFlags |= PSP_DLGINDIRECT;
    m_psp.pResource = dialogTemplate;
}
