#include "host/Host.h"

#include <filesystem>

#include "host/unsaved_changes.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/entity_selection.h"
#include "platform/ed/file_search.h"
#include "platform/rx/AcRxDynamicLinker.h"
#include "platform/suite/orvik8.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/window_message.h"
#include "platform/win32/windows_path.h"

namespace host {

namespace {
constexpr std::size_t kFolderBufferSize = 260;
constexpr const char* kModuleFolder = "lib/grdx";

/// Command text that arrives at the main window goes to the current document.
LRESULT OnMainWindowMessage(UINT message, LPARAM lParam) {
    if (message != WM_COPYDATA || lParam == 0) {
        return 0;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry addresses as numbers
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    const std::string text(static_cast<const char*>(data.lpData), data.cbData);
    // The count includes the terminating zero.
    const Acad::ErrorStatus status =
        acDocManager->sendStringToExecute(acDocManager->curDocument(), text.c_str());
    return status == Acad::eOk ? TRUE : FALSE;
}

void CloseAllDocuments(void* /*data*/) {
    while (AcApDocument* document = acDocManager->curDocument()) {
        acDocManager->closeDocument(document);
    }
}

bool IsAbsolute(const std::string& path) {
    return !path.empty() && (path.front() == '\\' || path.front() == '/');
}
}  // namespace

Host::Host()
    : interpreter_(*this),
      mainWindow_(win32::CreateWindow([](UINT message, WPARAM /*sender*/, LPARAM data) {
          return OnMainWindowMessage(message, data);
      })) {
    win32::SetMainWindow(mainWindow_);
    ed::SetPickSource([this](const char* prompt, AcDbObjectId& id, ads_point point) {
        AcGePoint3d where;
        const bool picked = interpreter_.Pick(prompt, id, where);
        point[0] = where.x;
        point[1] = where.y;
        point[2] = where.z;
        return picked;
    });
    acDocManager->setLeaveQuestion(MayGo);
    std::error_code gone;
    win32::WindowsPath(std::filesystem::current_path(gone).string(), startFolder_);
}

Host::~Host() {
    acDocManager->executeInApplicationContext(CloseAllDocuments, nullptr);
    for (auto module = modules_.rbegin(); module != modules_.rend(); ++module) {
        acrxDynamicLinker->unloadModule(module->c_str());
    }
    acDocManager->setLeaveQuestion(nullptr);
    ed::SetPickSource(nullptr);
    win32::SetMainWindow(nullptr);
    win32::DestroyWindow(mainWindow_);
}

bool Host::OpenSuite(const std::string& folder, std::string& error) {
    if (!suite::OpenFolder(folder, error)) {
        return false;
    }
    char registered[kFolderBufferSize] = "";
    GetRegisteredFolder(registered);
    const std::string support = std::string(registered) + "\\Support";
    ed::SetSearchFolders({support});
    ed::LoadFontMapping(support + "\\fonts.ini");
    return true;
}

bool Host::LoadModule(const std::string& path, std::string& error) {
    if (!acrxDynamicLinker->loadModule(path.c_str(), error)) {
        return false;
    }
    modules_.push_back(path);
    return true;
}

std::filesystem::path Host::ProgramFolder() {
    std::error_code untold;
    return std::filesystem::read_symlink("/proc/self/exe", untold).parent_path();
}

std::string Host::FindModule(const std::string& name, std::string& error) {
    std::error_code fault;
    const std::filesystem::path folder = ProgramFolder();
    for (const auto& candidate : {folder / name, folder.parent_path() / kModuleFolder / name}) {
        // Without a folder the name alone would be one in the current folder.
        if (!folder.empty() && std::filesystem::is_regular_file(candidate, fault)) {
            return candidate.string();
        }
    }
    error = name + " is neither beside the program nor in the folder \"" + kModuleFolder +
            "\" beside its folder";
    return {};
}

void Host::StartDocument() {
    acDocManager->executeInApplicationContext(
        [](void* /*data*/) { acDocManager->appContextNewDocument(); }, nullptr);
}

std::string Host::ResolvePath(const std::string& path) const {
    return IsAbsolute(path) || startFolder_.empty() ? path : startFolder_ + "\\" + path;
}

}  // namespace host
