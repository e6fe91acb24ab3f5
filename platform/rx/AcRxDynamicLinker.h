#pragma once

#include <memory>
#include <string>
#include <vector>

namespace AcRx {
/// Messages sent to a module's entry point.
enum AppMsgCode { kNullMsg = 0, kInitAppMsg = 1, kUnloadAppMsg = 2 };
/// What the entry point answers.
enum AppRetCode { kRetOK = 0, kRetError = 3 };
/// Release of the interface between host and module; a module's acrxGetApiVersion answers it.
inline constexpr int kApiVersion = 15;

/// Signatures of a module's two exports, both `extern "C"`. The packet names the module to the
/// linker; null for no module.
using EntryPoint = AppRetCode(AppMsgCode message, void* packet);
using GetApiVersion = int();
}  // namespace AcRx

/// Loads modules (shared objects that export `acrxEntryPoint` and `acrxGetApiVersion`) and sends
/// them their load and unload messages. Also what a module calls back during its load message.
class AcRxDynamicLinker {
public:
    AcRxDynamicLinker();
    /// Leaves modules linked that are still loaded: code of theirs may yet run at the end.
    ~AcRxDynamicLinker();

    /// Loads the module (a path of the file system, UTF-8) and sends it kInitAppMsg. False, with
    /// the reason in `error` (UTF-8), when the file cannot be linked, lacks an export, is made for
    /// another release or answers anything but kRetOK. Loading a module that is loaded already
    /// succeeds and does nothing.
    bool loadModule(const char* fileName, std::string& error);
    /// Sends kUnloadAppMsg and unlinks, whatever the module answers. False when not loaded, or
    /// locked against unloading.
    bool unloadModule(const char* fileName);

    /// Called by a module with the packet of its load message: it may be unloaded while we run.
    bool unlockApplication(void* packet) const;
    /// Called by a module with the packet of its load message: it copes with several documents.
    /// Both are false for a packet of no loaded module.
    bool registerAppMDIAware(void* packet) const;

private:
    struct Module;
    Module* moduleOf(const void* packet) const;
    std::unique_ptr<Module> link(const std::string& path, std::string& error) const;

    std::vector<std::unique_ptr<Module>> modules_;  // in the order they were loaded
};

AcRxDynamicLinker* acrxDynamicLinkerInstance();
#define acrxDynamicLinker acrxDynamicLinkerInstance()

/// Stops the program with the message on stderr: for states that must not be continued from.
[[noreturn]] void acrx_abort(const char* format, ...) __attribute__((format(printf, 1, 2)));
