#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/win32/code_page.h"

/// Records, as UTF-8, what the user is told while it lives. Boxes get their default button.
class RecordedMessages {
public:
    RecordedMessages()
        : windowsBefore_(mfc::SetWindowSystem(&windows_)),
          sinkBefore_(ed::SetCommandLineSink(
              [this](const std::string& text) { commandLine_ += win32::Utf8FromGbk(text); })) {}
    ~RecordedMessages() {
        ed::SetCommandLineSink(std::move(sinkBefore_));
        mfc::SetWindowSystem(windowsBefore_);
    }
    RecordedMessages(const RecordedMessages&) = delete;
    RecordedMessages& operator=(const RecordedMessages&) = delete;

    std::vector<std::string> Boxes() const {
        std::vector<std::string> texts;
        for (const mfc::ShownWindow& window : windows_.Shown()) {
            texts.push_back(win32::Utf8FromGbk(window.text));
        }
        return texts;
    }
    const std::string& CommandLine() const { return commandLine_; }
    /// The same, and forgets them.
    std::vector<std::string> TakeBoxes() {
        std::vector<std::string> texts = Boxes();
        windows_.Reset();
        return texts;
    }
    std::string TakeCommandLine() { return std::exchange(commandLine_, {}); }

private:
    mfc::ScriptedWindowSystem windows_;
    mfc::WindowSystem* windowsBefore_;
    std::string commandLine_;
    ed::CommandLineSink sinkBefore_;
};
