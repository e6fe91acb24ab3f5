#pragma once

#include <gtest/gtest.h>

#include <string>

#include "src/core/GrainSizeRecord.h"
#include "tests/src/ProjectFolder.h"
#include "tests/src/RecordedMessages.h"

/// An empty project database, the key of a sample and a layer of project 12, and what the user is
/// told.
class DatabaseFixture : public testing::Test {
protected:
    DatabaseFixture() { Run("ALTER TABLE x_SheJi ADD COLUMN note"); }

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
        const std::vector<std::string> boxes = messages_.TakeBoxes();
        EXPECT_LE(boxes.size(), 1U);
        return boxes.empty() ? "" : boxes.front();
    }
    std::string Printed() { return messages_.TakeCommandLine(); }

    ProjectFolder project_;
    RecordedMessages messages_;
};
