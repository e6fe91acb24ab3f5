#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "apps/desk/CommandFeed.h"
#include "apps/windows/QtWindowSystem.h"
#include "host/Host.h"
#include "platform/db/AcRxEventReactor.h"

namespace desk {

/// The drawing program behind the main window: host, plug-in, windows, and what it says on the
/// command line. Texts given out are UTF-8 unless said otherwise.
class DeskSession : private AcRxEventReactor {
public:
    DeskSession();
    ~DeskSession() override;
    DeskSession(const DeskSession&) = delete;
    DeskSession& operator=(const DeskSession&) = delete;

    /// Asks the user whether a suite folder, empty for none, may be used that leads to what lies
    /// outside of it. False when he says no, and with the reason when it is no suite folder.
    bool Admit(const std::string& suiteFolder, std::string& error);
    /// Starts with a suite folder, empty for none: an untitled drawing is open and the plug-in
    /// loaded. A running session ends first, its drawings close without being asked for. False,
    /// with the reason, when the folder is no suite folder (all is then as it was) or the plug-in
    /// cannot be loaded.
    bool Start(const std::string& suiteFolder, std::string& error);
    /// Empty for none.
    const std::string& SuiteFolder() const { return suiteFolder_; }

    host::Host& Program() { return *host_; }
    CommandFeed& Feed() { return *feed_; }
    windows::QtWindowSystem& Windows() { return windows_; }

    /// Gets the command line's text, GBK as printed.
    void SetTextSink(std::function<void(const std::string& gbk)> sink) { sink_ = std::move(sink); }
    /// Gives the commands of every session what is selected, as their interpreter asks for it.
    void SetSelectionSource(host::CommandInterpreter::SelectionSource selection);
    /// Told of every state of the feed, and when a session has started.
    void SetStateListener(std::function<void()> listener);

    /// Runs a line as a menu does and collects what is said meanwhile. False when a command
    /// failed.
    bool Run(const std::string& gbkLine, std::string& said);

private:
    void OnText(const std::string& gbk);
    void OnFault(const std::string& fault);
    void OnState();
    void abortSave(AcDbDatabase* database) override;
    void insertIncomplete(AcDbDatabase* target, const std::string& finding) override;

    windows::QtWindowSystem windows_;
    std::function<void(const std::string&)> sink_;
    std::function<void()> stateListener_;
    host::CommandInterpreter::SelectionSource selection_;
    std::unique_ptr<host::Host> host_;
    std::unique_ptr<CommandFeed> feed_;
    std::string suiteFolder_;
    std::string said_;                       ///< GBK, by the commands of the last Run
    std::vector<std::string> unsaidFaults_;  ///< of files and the database, nobody told yet
};

}  // namespace desk
