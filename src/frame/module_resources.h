#pragma once

#include "platform/ap/AcApDocManager.h"
#include "src/common/module_state.h"

/// Makes the plug-in's resources the current ones for as long as it lives.
class ModuleResources {
public:
    ModuleResources() {
        acDocManager->pushResourceHandle(ExtensionModule.ModuleResourceInstance());
    }
    ~ModuleResources() { acDocManager->popResourceHandle(); }
    ModuleResources(const ModuleResources&) = delete;
    ModuleResources& operator=(const ModuleResources&) = delete;
};
