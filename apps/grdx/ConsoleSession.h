#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/grdx/ChartTally.h"
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

    /// The charts of the command that runs.
    const ChartTally& Charts() const { return charts_; }

    /// Once a command has ended: says on standard error which files could not be read or written,
    /// what the database refused and which charts are missing, as far as nobody has said it. False
    /// when there was any of these, or the command has said that it refuses or has failed.
    bool JudgeCommand();

private:
    void NoteFault(const std::string& text);
    bool ReportFaults();
    void OnCommandLine(const std::string& text);
    void OnBox(const mfc::MessageBoxRequest& box);
    void OnDialogEnd(mfc::FrameModel& window, bool givenUp);
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
    ChartTally charts_;
    bool objected_ = false;  ///< a dialog has, and is still open
    bool refused_ = false;   ///< the command has said so
};

}  // namespace console
