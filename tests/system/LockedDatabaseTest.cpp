// A write that the database refuses must not pass for a stored result.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "tests/system/Program.h"

namespace {

TEST(LockedDatabase, IsReportedAndFailsTheRun) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 0);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(suite.Database().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const ProgramResult drawn = RunProgram({GRDX_PROGRAM, "draw", "samples", "-s", suite.Folder(),
                                            "--borehole", "ZK1", "--sample", "1"});
    sqlite3_close(other);
    EXPECT_EQ(drawn.status, 1);
    EXPECT_NE(drawn.errors.find("Z_c_KeFen: database is locked"), std::string::npos)
        << drawn.errors;
}

}  // namespace
