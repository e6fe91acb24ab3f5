#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "host/Host.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbLine.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/win32/windows_path.h"

/// A host with one untitled drawing, windows answered from a list, the command line written down,
/// and a scratch folder.
class HostFixture : public testing::Test {
protected:
    HostFixture() {
        std::filesystem::create_directories(folder_);
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
        host_ = std::make_unique<host::Host>();
        host_->StartDocument();
    }
    ~HostFixture() override {
        host_.reset();
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
        std::filesystem::remove_all(folder_);
    }

    /// Runs command-line input; true when every command went well.
    bool Run(const std::string& text) {
        host::CommandInput input = host::CommandInput::OfText(text);
        return host_->Interpreter().Run(input);
    }
    void AnswerBox(int button) { windows_.AddAnswer({mfc::Answer::Kind::Box, button}); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    static AcApDocument* Current() { return acDocManager->curDocument(); }

    /// Appends an entity to the current drawing; its pick, "#HANDLE".
    static std::string Draw(std::unique_ptr<AcDbEntity> entity) {
        AcDbBlockTable* blocks = nullptr;
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(Current()->database()->getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity.get()), Acad::eOk);
        entity.release()->close();
        space->close();
        char pick[24];
        std::snprintf(pick, sizeof pick, "#%llX", static_cast<unsigned long long>(id.handle()));
        return pick;
    }
    static std::string DrawLine(double x1, double y1, double x2, double y2) {
        return Draw(std::make_unique<AcDbLine>(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0)));
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("grdx-host-" + std::to_string(getpid()));
    mfc::ScriptedWindowSystem windows_;
    std::string printed_;
    std::unique_ptr<host::Host> host_;
};
