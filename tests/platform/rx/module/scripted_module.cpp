#include "platform/rx/AcRxDynamicLinker.h"
#include "tests/platform/rx/module/ModuleScript.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    moduleScript.messages.push_back(message);
    if (message == AcRx::kInitAppMsg && moduleScript.unlock) {
        moduleScript.unlocked = acrxDynamicLinker->unlockApplication(packet);
        moduleScript.foreignPacketTaken = acrxDynamicLinker->unlockApplication(&moduleScript);
    }
    return static_cast<AcRx::AppRetCode>(moduleScript.answer);
}

extern "C" int acrxGetApiVersion() {
    return moduleScript.apiVersion;
}
