#include "platform/rx/AcRxDynamicLinker.h"

#include <dlfcn.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

/// A linked module; its address is the packet the module is given.
struct AcRxDynamicLinker::Module {
    Module() = default;
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module() {
        if (library != nullptr) {
            dlclose(library);
        }
    }

    std::string path;
    void* library = nullptr;
    AcRx::EntryPoint* entryPoint = nullptr;
    bool mayUnload = false;
};

namespace {

/// The file's one absolute name, by which a module is known however it was named, also when the
/// file is gone meanwhile. Empty when the name is none.
std::string canonicalPath(const char* fileName) {
    std::error_code ignored;
    return std::filesystem::weakly_canonical(fileName, ignored).string();
}

std::string refusal(const char* fileName, const std::string& reason) {
    return std::string("cannot load \"") + fileName + "\": " + reason;
}

std::string lastLinkError() {
    const char* const text = dlerror();
    return text != nullptr ? text : "unknown reason";
}

}  // namespace

AcRxDynamicLinker::AcRxDynamicLinker() = default;

AcRxDynamicLinker::~AcRxDynamicLinker() {
    for (std::unique_ptr<Module>& module : modules_) {
        module->library = nullptr;
    }
}

std::unique_ptr<AcRxDynamicLinker::Module> AcRxDynamicLinker::link(const std::string& path,
                                                                   std::string& error) const {
    auto module = std::make_unique<Module>();
    module->path = path;
    module->library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module->library == nullptr) {
        error = lastLinkError();
        return nullptr;
    }
    module->entryPoint =
        reinterpret_cast<AcRx::EntryPoint*>(dlsym(module->library, "acrxEntryPoint"));
    auto* const version =
        reinterpret_cast<AcRx::GetApiVersion*>(dlsym(module->library, "acrxGetApiVersion"));
    if (module->entryPoint == nullptr || version == nullptr) {
        error = std::string("it does not export ") +
                (module->entryPoint == nullptr ? "acrxEntryPoint" : "acrxGetApiVersion");
        return nullptr;
    }
    if (const int release = version(); release != AcRx::kApiVersion) {
        error = "it is made for release " + std::to_string(release) + " of the interface, not " +
                std::to_string(AcRx::kApiVersion);
        return nullptr;
    }
    return module;
}

bool AcRxDynamicLinker::loadModule(const char* fileName, std::string& error) {
    const std::string path = canonicalPath(fileName);
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) {
        error = refusal(fileName, "there is no such file");
        return false;
    }
    const auto isLoaded = [&path](const auto& module) { return module->path == path; };
    if (std::any_of(modules_.begin(), modules_.end(), isLoaded)) {
        return true;
    }
    std::string reason;
    std::unique_ptr<Module> linked = link(path, reason);
    if (linked == nullptr) {
        error = refusal(fileName, reason);
        return false;
    }
    Module* const module = linked.get();
    modules_.push_back(
        std::move(linked));  // before the message: the module calls back with its packet
    const AcRx::AppRetCode answer = module->entryPoint(AcRx::kInitAppMsg, module);
    if (answer != AcRx::kRetOK) {
        error = refusal(fileName, "it answered its load message with " + std::to_string(answer));
        std::erase_if(modules_, [module](const auto& entry) { return entry.get() == module; });
        return false;
    }
    return true;
}

bool AcRxDynamicLinker::unloadModule(const char* fileName) {
    const std::string path = canonicalPath(fileName);
    const auto found = std::find_if(modules_.begin(), modules_.end(),
                                    [&path](const auto& module) { return module->path == path; });
    if (found == modules_.end() || !(*found)->mayUnload) {
        return false;
    }
    const std::unique_ptr<Module> module = std::move(*found);
    modules_.erase(found);
    module->entryPoint(AcRx::kUnloadAppMsg, module.get());
    return true;
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::moduleOf(const void* packet) const {
    for (const std::unique_ptr<Module>& module : modules_) {
        if (module.get() == packet) {
            return module.get();
        }
    }
    return nullptr;
}

bool AcRxDynamicLinker::unlockApplication(void* packet) const {
    Module* const module = moduleOf(packet);
    if (module != nullptr) {
        module->mayUnload = true;
    }
    return module != nullptr;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* packet) const {
    return moduleOf(packet) != nullptr;  // every document is its own here: nothing to remember
}

AcRxDynamicLinker* acrxDynamicLinkerInstance() {
    static AcRxDynamicLinker linker;
    return &linker;
}
