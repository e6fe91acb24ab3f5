#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/grdx/MessageStream.h"
#include "host/Host.h"
#include "platform/db/AcRxEventReactor.h"
#include "platform/mfc/ScriptedWindowSystem.h"

namespace console {

/// A drawing program without a screen: the host, its windows answered from a script, everything it
/// says on standard error.
class ConsoleSession : private AcRxEventReactor {
public:
    explicit ConsoleSession(MessageStream& messages);
    ~ConsoleSession() override;
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    host::Host& Program() { return host_; }
    mfc::ScriptedWindowSystem& Windows() { return windows_; }
    MessageStream& Messages() { return messages_; }

    /// Failure when the folder is no suite folder (an empty name: none is needed), or the plug-in
    /// is not where it belongs. An untitled drawing is open afterwards.
    void Start(const std::string& suiteFolder);

    /// Called with the path (of the file system, UTF-8) of every drawing saved.
    void SetSaveListener(std::function<void(const std::string& path)> listener) {
        saveListener_ = std::move(listener);
    }

    /// Says on standard error which files could not be read or written and what the database
    /// refused, as far as nobody has said it. True when there was anything since the last call.
    bool ReportFaults();
    /// True when the plug-in has said that results could not be stored since the last call.
    bool TakeStoreFailure();

private:
    void NoteFault(const std::string& text);
    void OnCommandLine(const std::string& text);
    void saveComplete(AcDbDatabase* database, const char* path) override;
    void abortSave(AcDbDatabase* database) override;
    void abortRead(AcDbDatabase* database) override;
    void insertIncomplete(AcDbDatabase* target, const std::string& finding) override;

    MessageStream& messages_;
    mfc::ScriptedWindowSystem windows_;
    host::Host host_;
    std::function<void(const std::string&)> saveListener_;
    bool faulty_ = false;
    std::vector<std::string> unsaidFaults_;  ///< UTF-8, in order
    bool storeFailed_ = false;
};

}  // namespace console
