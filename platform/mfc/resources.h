#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/mfc/dialog_template.h"
#include "platform/win32/win_types.h"

inline LPCSTR MAKEINTRESOURCE(WORD number) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number that stands for a name
    return reinterpret_cast<LPCSTR>(static_cast<std::uintptr_t>(number));
}
inline const LPCSTR RT_DIALOG = MAKEINTRESOURCE(5);

/// Null when the module (null: none) has no dialog of that number (MAKEINTRESOURCE). `type` must
/// be RT_DIALOG: the other resources have functions of their own.
HRSRC FindResource(HMODULE module, LPCSTR name, LPCSTR type);
/// These three take what FindResource gave; null gives null, 0 bytes. The template's memory lives
/// as long as the module is registered.
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
LPVOID LockResource(HGLOBAL loaded);
DWORD SizeofResource(HMODULE module, HRSRC resource);
/// Icon `name` (MAKEINTRESOURCE) of the module; null when there is none.
HICON LoadIcon(HINSTANCE module, LPCSTR name);

namespace mfc {

/// What a module brings along, by numbers that are unique per kind.
struct ModuleResources {
    std::vector<DialogDescription> dialogs;
    /// The picture's file content, in a format that back ends read (XPM, PNG or SVG).
    std::map<WORD, std::string> icons;
    std::map<WORD, std::string> strings;  ///< GBK
};

/// A module registers its resources when it is linked in and gets its instance handle by it,
/// which is valid until it unregisters them. std::logic_error for a number used twice.
HINSTANCE RegisterModule(const ModuleResources& resources);
void UnregisterModule(HINSTANCE module);

/// The picture behind an icon handle; empty for null or a handle that is no longer valid.
std::string IconPicture(HICON icon);
/// String resource of a module; false when there is none.
bool FindString(HINSTANCE module, UINT number, std::string& text);

}  // namespace mfc
