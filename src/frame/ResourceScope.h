#pragma once

#include "platform/ap/AcApDocManager.h"
#include "src/common/module_state.h"

/// Makes the plug-in's resources the current ones for as long as it lives.
class ResourceScope {
public:
    ResourceScope() { acDocManager->pushResourceHandle(ExtensionModule.ModuleResourceInstance()); }
    ~ResourceScope() { acDocManager->popResourceHandle(); }
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;
};
