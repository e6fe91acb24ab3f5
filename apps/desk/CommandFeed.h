#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "host/CommandInterpreter.h"
#include "platform/ed/AcEditor.h"

class QEventLoop;

namespace desk {

/// Brings what the user types, clicks and chooses to the interpreter. A command that asks for more
/// waits in an event loop of its own until there is a line for it. Lines are GBK.
class CommandFeed : private AcEditorReactor {
public:
    /// To be made before modules are loaded, so that it hears of a command before their reactors,
    /// which may ask something themselves.
    explicit CommandFeed(host::CommandInterpreter& interpreter);
    ~CommandFeed() override;
    CommandFeed(const CommandFeed&) = delete;
    CommandFeed& operator=(const CommandFeed&) = delete;

    /// A line: the waiting command's answer, or commands to run. An empty one repeats the last
    /// command, or gives the waiting one nothing. Returns when the commands are through, unless one
    /// runs already. False when one of them failed or was cancelled.
    bool Submit(const std::string& line);
    /// Starts commands as a menu does: what waits is cancelled first.
    bool Start(const std::string& line);
    /// Runs what was sent to the document that has become current.
    void RunSent();
    /// Gives up the waiting command. False when none waits.
    bool Cancel();

    bool IsRunning() const { return running_; }
    /// A command waits for an answer.
    bool IsWaiting() const { return loop_ != nullptr; }

    /// Called when a command begins to wait and when it goes on, and after each run of commands.
    void SetStateListener(std::function<void()> listener) { stateListener_ = std::move(listener); }

private:
    std::optional<std::string> NextLine();
    bool RunQueued(bool repeatable = true);
    void Put(const std::string& line);
    void commandWillStart(const char* commandName) override;
    void commandEnded(const char* commandName) override;

    host::CommandInterpreter& interpreter_;
    std::deque<std::string> lines_;
    std::function<void()> stateListener_;
    QEventLoop* loop_ = nullptr;  ///< of the command that waits
    bool running_ = false;
    int depth_ = 0;  ///< commands begun and not ended
    std::string lastCommand_;
    bool takeName_ = false;  ///< the next command is the one to repeat
};

}  // namespace desk
