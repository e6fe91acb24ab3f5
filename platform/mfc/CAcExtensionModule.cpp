#include "platform/mfc/CAcExtensionModule.h"

#include "platform/mfc/afx.h"

void CAcExtensionModule::AttachInstance(HINSTANCE instance) {
    instance_ = instance;
}

void CAcExtensionModule::DetachInstance() {
    if (instance_ != nullptr && AfxGetResourceHandle() == instance_) {
        AfxSetResourceHandle(nullptr);
    }
    instance_ = nullptr;
}
