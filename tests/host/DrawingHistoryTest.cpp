#include "host/undo/DrawingHistory.h"

#include <gmock/gmock.h>
#include <malloc.h>

#include "platform/db/AcDbDatabase.h"
#include "tests/host/HostFixture.h"

using testing::HasSubstr;

namespace {

class DrawingHistoryTest : public HostFixture {
protected:
    static bool IsChanged() { return Current()->database()->isModified(); }
    std::string NextUndo() { return host_->Histories().Of(*Current()).NextUndo(); }
};

TEST_F(DrawingHistoryTest, WhatChangesNothingIsNoStep) {
    const std::string line = DrawLine(0, 0, 10, 0);
    const std::string commands[] = {
        "ZOOM E",          "LIST " + line, "SAVEAS \"" + Path("a") + "\"",
        "QSAVE",           "SDI 0",        "SCALE " + line + " 0,0 0",
        "EXPLODE " + line, "ERASE #FFFF",  "NEW CLOSE"};
    for (const std::string& command : commands) {
        Run(command);
        EXPECT_EQ(NextUndo(), "") << command;
        EXPECT_FALSE(Run("U")) << command;
    }
    EXPECT_THAT(printed_, HasSubstr("There is nothing to undo."));
    EXPECT_FALSE(Run("ERASE " + line + ",#FFFF"));
    EXPECT_EQ(NextUndo(), "ERASE") << "what was done of it is one";
}

TEST_F(DrawingHistoryTest, EveryDrawingHasItsOwnSteps) {
    const std::string line = DrawLine(0, 0, 10, 0);
    ASSERT_TRUE(Run("MOVE " + line + " 0,0 1,0 NEW"));
    EXPECT_FALSE(Run("U"));
    ASSERT_TRUE(Run("CLOSE U"));
    EXPECT_EQ(NextUndo(), "");
}

// The state last saved is not changed, however it was come to; no other is.
TEST_F(DrawingHistoryTest, OnlyTheSavedStateIsUnchanged) {
    const std::string line = DrawLine(0, 0, 10, 0);
    const std::string move = "MOVE " + line + " 0,0 1,0";
    const std::pair<std::string, bool> way[] = {
        {"SAVEAS \"" + Path("a") + "\"", false},
        {move, true},
        {"U", false},
        {"REDO", true},
        {"QSAVE", false},
        {"U", true},
        {"REDO", false},
        {move, true},
        {"UNDO 2", true},
        {move, true},  // the saved state cannot be reached any more
        {"U", true},
        {"REDO", true},
        {"QSAVE", false},
    };
    for (const auto& [command, changed] : way) {
        ASSERT_TRUE(Run(command)) << printed_;
        EXPECT_EQ(IsChanged(), changed) << command << " after " << printed_;
    }
    Draw(std::make_unique<AcDbLine>());  // a change that no command made
    EXPECT_TRUE(Run("U REDO"));
    EXPECT_TRUE(IsChanged());
}

TEST_F(DrawingHistoryTest, AThousandStepsTakeTheMemoryOfWhatTheyChange) {
    std::string line;
    for (int i = 0; i < 20000; ++i) {
        line = DrawLine(i, 0, i, 10);
    }
    ASSERT_TRUE(Run("COPY " + line + " 0,0 1,0"));
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i <= 1000; ++i) {
        ASSERT_TRUE(Run((i % 2 == 0 ? "COPY " : "MOVE ") + line + " 0,0 1,0"));
    }
    EXPECT_LT(mallinfo2().uordblks - before, 1001U * 4096U)
        << "the list of entities alone is 40 times that";
    printed_.clear();
    EXPECT_TRUE(Run("UNDO 5000"));
    std::size_t undone = 0;
    for (std::size_t at = 0; (at = printed_.find("Undone: ", at)) != std::string::npos; ++at) {
        ++undone;
    }
    EXPECT_EQ(undone, host::DrawingHistory::kMostSteps);
    EXPECT_FALSE(Run("UNDO 0"));
    EXPECT_FALSE(Run("UNDO -1"));
    EXPECT_FALSE(Run("UNDO x"));
}

}  // namespace
