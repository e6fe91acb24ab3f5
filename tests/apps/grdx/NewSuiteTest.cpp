// Suite folders made at the same time, and by programs that are killed.

#include <gtest/gtest.h>

#include <filesystem>
#include <future>

#include "tests/system/Program.h"

namespace fs = std::filesystem;

TEST(NewSuiteTest, OfTwoAtOnceOneIsTheMakerAndAKilledOneLeavesNoSuite) {
    const ScratchFolder scratch;
    const fs::path suite = scratch.Path() / "suite";
    const auto make = [&] { return RunProgram({GRDX_PROGRAM, "new", suite}).status; };
    const auto list = [&] { return RunProgram({GRDX_PROGRAM, "list", "-s", suite}).status; };
    int killed = 0;
    for (int milliseconds = 0; milliseconds < 60; milliseconds += 5) {
        const bool ended = RunProgram({GRDX_PROGRAM, "new", suite}, milliseconds * 1000).status < 0;
        const bool made = fs::exists(suite / "suite.ini");
        EXPECT_EQ(list(), made ? 0 : 1) << milliseconds;
        EXPECT_EQ(make(), made ? 1 : 0) << milliseconds;
        killed += ended && !made ? 1 : 0;
        fs::remove_all(suite);

        auto other = std::async(make);
        const int status = make();
        EXPECT_EQ(status + other.get(), 1) << "one done, one refused";
        EXPECT_EQ(list(), 0);
        EXPECT_EQ(std::distance(fs::directory_iterator(suite), {}), 6) << "no traces of the work";
        fs::remove_all(suite);
    }
    EXPECT_GT(killed, 0);
}
