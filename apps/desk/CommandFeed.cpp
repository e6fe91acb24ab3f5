#include "apps/desk/CommandFeed.h"

#include <QEventLoop>
#include <utility>

namespace desk {

CommandFeed::CommandFeed(host::CommandInterpreter& interpreter) : interpreter_(interpreter) {
    acedEditor->addReactor(this);
}

CommandFeed::~CommandFeed() {
    acedEditor->removeReactor(this);
}

bool CommandFeed::Submit(const std::string& line) {
    if (IsWaiting()) {
        Put(line.empty() ? host::CommandInput::kCancel : line);
        return true;
    }
    if (line.empty() && lastCommand_.empty()) {
        return true;
    }
    Put(line.empty() ? lastCommand_ : line);
    return running_ || RunQueued();
}

bool CommandFeed::Start(const std::string& line) {
    if (IsWaiting()) {
        Put(host::CommandInput::kCancel);
    }
    Put(line);
    return running_ || RunQueued();
}

bool CommandFeed::Cancel() {
    if (!IsWaiting()) {
        return false;
    }
    Put(host::CommandInput::kCancel);
    return true;
}

void CommandFeed::Put(const std::string& line) {
    lines_.push_back(line);
    if (loop_ != nullptr) {
        loop_->quit();
    }
}

void CommandFeed::RunSent() {
    if (!running_) {
        Put(host::CommandInput::kCancel);  // after it, as after any command, that is run
        RunQueued(false);
    }
}

bool CommandFeed::RunQueued(bool repeatable) {
    running_ = true;
    takeName_ = repeatable;
    host::CommandInput input([this] { return NextLine(); });
    const bool good = interpreter_.Run(input);
    running_ = false;
    if (stateListener_) {
        stateListener_();
    }
    return good;
}

std::optional<std::string> CommandFeed::NextLine() {
    if (lines_.empty()) {
        if (depth_ == 0) {
            return std::nullopt;
        }
        QEventLoop loop;
        loop_ = &loop;
        if (stateListener_) {
            stateListener_();
        }
        loop.exec();
        loop_ = nullptr;
        if (stateListener_) {
            stateListener_();
        }
    }
    if (lines_.empty()) {  // the program is closing
        return host::CommandInput::kCancel;
    }
    std::string line = std::move(lines_.front());
    lines_.pop_front();
    return line;
}

void CommandFeed::commandWillStart(const char* commandName) {
    if (depth_++ == 0 && std::exchange(takeName_, false)) {
        lastCommand_ = commandName;
    }
}

void CommandFeed::commandEnded(const char* /*commandName*/) {
    --depth_;
}

}  // namespace desk
