#pragma once

#include "platform/win32/win_types.h"

/// A module's record of its own instance. Where it was published, attaching also enters the module
/// in the framework's chain of libraries (AfxInitExtensionModule, CDynLinkLibrary) and detaching
/// takes it out (AfxTermExtensionModule), so that resources are found along the chain. Here a
/// module's resources are asked for by its instance alone, and there is no chain to enter.
class CAcExtensionModule {
public:
    /// The module was linked into the process under this instance.
    void AttachInstance(HINSTANCE instance);
    /// The module is about to go. It stops being the current resource module if it is.
    void DetachInstance();
    bool Attached() const { return instance_ != nullptr; }
    /// Null while detached.
    HINSTANCE ModuleResourceInstance() const { return instance_; }

private:
    HINSTANCE instance_ = nullptr;
};
