#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/Host.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbLine.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "tests/platform/db/Opened.h"
#include "tests/platform/win32/ScratchFolder.h"

/// A host with one untitled drawing, windows answered from a list, the command line written down,
/// and a scratch folder.
class HostFixture : public testing::Test {
protected:
    HostFixture() {
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
        host_ = std::make_unique<host::Host>();
        host_->StartDocument();
    }
    ~HostFixture() override {
        host_.reset();
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
    }

    /// Runs command-line input; true when every command went well.
    bool Run(const std::string& text) {
        host::CommandInput input = host::CommandInput::OfText(text);
        return host_->Interpreter().Run(input);
    }
    void AnswerBox(int button) { windows_.AddAnswer({mfc::Answer::Kind::Box, button}); }

    std::string Path(const std::string& name) const { return folder_.Path(name); }
    static AcApDocument* Current() { return acDocManager->curDocument(); }

    /// Appends an entity to the current drawing; its pick, "#HANDLE".
    static std::string Draw(std::unique_ptr<AcDbEntity> entity) {
        const AcDbObjectId id = AppendTo(*Current()->database(), std::move(entity));
        char pick[24];
        std::snprintf(pick, sizeof pick, "#%llX", static_cast<unsigned long long>(id.handle()));
        return pick;
    }
    static std::string DrawLine(double x1, double y1, double x2, double y2) {
        return Draw(std::make_unique<AcDbLine>(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0)));
    }

    ScratchFolder folder_;
    mfc::ScriptedWindowSystem windows_;
    std::string printed_;
    std::unique_ptr<host::Host> host_;
};
