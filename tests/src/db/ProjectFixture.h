#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/win32/code_page.h"
#include "src/core/GrainSizeRecord.h"
#include "tests/src/ProjectFolder.h"

/// An empty project database, the key of a sample and a layer of project 12, and what the user is
/// told.
class ProjectFixture : public testing::Test {
protected:
    ProjectFixture() {
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
        Run("ALTER TABLE x_SheJi ADD COLUMN note");
    }
    ~ProjectFixture() override {
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
    }

    static GrainSizeRecord Record() {
        GrainSizeRecord record;
        record.projectIndex = 12;
        record.borehole = "ZK3";
        record.sample = "5";
        record.mainLayer = 2;
        record.subLayer = 1;
        return record;
    }
    void Run(const std::string& sql) { project_.Database().Run(sql); }
    std::string Rows(const std::string& select) { return project_.Database().Rows(select); }
    /// A result row of the current sample, apart from its key and total mass as given.
    void AddResultRow(const std::string& columns = "", const std::string& values = "") {
        Run("INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL" + columns + ") VALUES(12,'ZK3','5',500" +
            values + ")");
    }
    /// The one box shown since the last call, or the empty text for none; UTF-8.
    std::string Box() {
        EXPECT_LE(windows_.Shown().size(), 1U);
        std::string text;
        if (!windows_.Shown().empty()) {
            EXPECT_EQ(windows_.Shown().back().type, MB_OK);
            text = win32::Utf8FromGbk(windows_.Shown().back().text);
        }
        windows_.Reset();
        return text;
    }
    std::string Printed() { return win32::Utf8FromGbk(std::exchange(printed_, "")); }

    ProjectFolder project_;
    mfc::ScriptedWindowSystem windows_;
    std::string printed_;
};
