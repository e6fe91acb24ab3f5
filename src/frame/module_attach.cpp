#include "src/common/module_state.h"
#include "src/ui/plugin_resources.h"

namespace {

/// The module's life in the process: its resources are there from the moment it is linked in,
/// before its load message, to the moment it goes.
class ModuleAttachment {
public:
    ModuleAttachment() { ExtensionModule.AttachInstance(mfc::RegisterModule(PluginResources())); }
    ~ModuleAttachment() {
        HINSTANCE const instance = ExtensionModule.ModuleResourceInstance();
        ExtensionModule.DetachInstance();
        mfc::UnregisterModule(instance);
    }
    ModuleAttachment(const ModuleAttachment&) = delete;
    ModuleAttachment& operator=(const ModuleAttachment&) = delete;
};

const ModuleAttachment attachment;

}  // namespace
