#include "src/frame/entry_point.h"

#include <array>
#include <memory>
#include <string>

#include "platform/suite/orvik8.h"
#include "src/common/module_state.h"
#include "src/db/project_database.h"
#include "src/entity/CKFCurve.h"
#include "src/frame/CKFEditorReactor.h"
#include "src/frame/command_table.h"

namespace {

std::unique_ptr<CKFEditorReactor> editorReactor;

std::string ProfilePath(void (*suiteOperation)(char*)) {
    std::array<char, 256> buffer{};
    suiteOperation(buffer.data());
    return buffer.data();
}

void Load(void* packet) {
    acrxDynamicLinker->unlockApplication(packet);
    acrxDynamicLinker->registerAppMDIAware(packet);
    ProjectProfilePath = ProfilePath(GetProjectProfilePath);
    SettingsProfilePath = ProfilePath(GetSettingsProfilePath);
    MarkProfilePath = ProfilePath(GetMarkProfilePath);
    CKFCurve::rxInit();
    editorReactor = std::make_unique<CKFEditorReactor>();
    acedEditor->addReactor(editorReactor.get());
    AddCommands();
}

void Unload() {
    RemoveCommands();
    CKFCurve::rxRemove();
    acedEditor->removeReactor(editorReactor.get());
    editorReactor.reset();
    CloseProjectDatabase();
}

}  // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
        case AcRx::kInitAppMsg:
            Load(packet);
            break;
        case AcRx::kUnloadAppMsg:
            Unload();
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}

int acrxGetApiVersion() {
    return AcRx::kApiVersion;
}
