#pragma once

#include <string>

namespace AcRx {
/// Messages sent to a module's entry point.
enum AppMsgCode { kNullMsg = 0, kInitAppMsg = 1, kUnloadAppMsg = 2 };
/// What the entry point answers.
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}  // namespace AcRx

/// Loads modules (shared objects that export `acrxEntryPoint` and `acrxGetApiVersion`) and sends
/// them their load and unload messages. Also what a module calls back during its load message.
class AcRxDynamicLinker {
public:
    /// Loads the module and sends it kInitAppMsg. False, with the reason in `error` (UTF-8), when
    /// the file cannot be linked, lacks an export or answers anything but kRetOK. Loading a module
    /// that is loaded already succeeds and does nothing.
    bool loadModule(const char* fileName, std::string& error);
    /// Sends kUnloadAppMsg and unlinks. False when not loaded, or locked against unloading.
    bool unloadModule(const char* fileName);

    /// Called by a module with the packet of its load message: it may be unloaded while we run.
    bool unlockApplication(void* packet) const;
    /// Called by a module with the packet of its load message: it copes with several documents.
    bool registerAppMDIAware(void* packet) const;
};

AcRxDynamicLinker* acrxDynamicLinkerInstance();
#define acrxDynamicLinker acrxDynamicLinkerInstance()

/// Stops the program with the message on stderr: for states that must not be continued from.
[[noreturn]] void acrx_abort(const char* format, ...) __attribute__((format(printf, 1, 2)));
