#include "platform/mfc/resources.h"

#include <memory>
#include <stdexcept>

struct HRSRC__ {
    mfc::DialogDescription description;
    DLGTEMPLATE content;
};
struct HICON__ {
    std::string picture;
};
struct HINSTANCE__ {
    std::map<WORD, HRSRC__> dialogs;
    std::map<WORD, HICON__> icons;
    std::map<WORD, std::string> strings;
};

namespace {

std::map<HMODULE, std::unique_ptr<HINSTANCE__>>& Modules() {
    static std::map<HMODULE, std::unique_ptr<HINSTANCE__>> modules;
    return modules;
}

/// Null for null and for a module that is gone.
HINSTANCE__* FindModule(HMODULE module) {
    const auto found = Modules().find(module);
    return found == Modules().end() ? nullptr : found->second.get();
}

WORD NumberOf(LPCSTR name) {
    return LOWORD(reinterpret_cast<std::uintptr_t>(name));
}

/// The entry of that number; null when there is none.
template <class Entry>
Entry* FindEntry(std::map<WORD, Entry>& entries, WORD number) {
    const auto found = entries.find(number);
    return found == entries.end() ? nullptr : &found->second;
}

}  // namespace

HRSRC FindResource(HMODULE module, LPCSTR name, LPCSTR type) {
    HINSTANCE__* resources = FindModule(module);
    return resources == nullptr || type != RT_DIALOG
               ? nullptr
               : FindEntry(resources->dialogs, NumberOf(name));
}

HGLOBAL LoadResource(HMODULE /*module*/, HRSRC resource) {
    return resource;
}

LPVOID LockResource(HGLOBAL loaded) {
    return loaded == nullptr ? nullptr : &static_cast<HRSRC>(loaded)->content;
}

DWORD SizeofResource(HMODULE /*module*/, HRSRC resource) {
    return resource == nullptr ? 0 : sizeof resource->content;
}

HICON LoadIcon(HINSTANCE module, LPCSTR name) {
    HINSTANCE__* resources = FindModule(module);
    return resources == nullptr ? nullptr : FindEntry(resources->icons, NumberOf(name));
}

namespace mfc {

HINSTANCE RegisterModule(const ModuleResources& resources) {
    auto module = std::make_unique<HINSTANCE__>();
    for (const DialogDescription& dialog : resources.dialogs) {
        const auto [place, isNew] = module->dialogs.try_emplace(dialog.number);
        if (!isNew) {
            throw std::logic_error("two dialogs have number " + std::to_string(dialog.number));
        }
        place->second.description = dialog;
        place->second.content = {&place->second.description};
    }
    for (const auto& [number, picture] : resources.icons) {
        module->icons.emplace(number, HICON__{picture});
    }
    module->strings = resources.strings;
    const HINSTANCE handle = module.get();
    Modules().emplace(handle, std::move(module));
    return handle;
}

void UnregisterModule(HINSTANCE module) {
    Modules().erase(module);
}

std::string IconPicture(HICON icon) {
    for (const auto& [handle, module] : Modules()) {
        for (const auto& [number, entry] : module->icons) {
            if (&entry == icon) {
                return entry.picture;
            }
        }
    }
    return {};
}

bool FindString(HINSTANCE module, UINT number, std::string& text) {
    HINSTANCE__* resources = FindModule(module);
    const std::string* found =
        resources == nullptr ? nullptr : FindEntry(resources->strings, static_cast<WORD>(number));
    if (found == nullptr) {
        return false;
    }
    text = *found;
    return true;
}

}  // namespace mfc
