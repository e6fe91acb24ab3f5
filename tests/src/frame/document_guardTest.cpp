#include "src/frame/documents.h"

#include "platform/db/AcDbDatabase.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

using DocumentGuardTest = FrameFixture;

TEST_F(DocumentGuardTest, OneDrawingPassesWithoutAQuestion) {
    SetDocumentMode(0);
    EXPECT_TRUE(CheckSingleDocument(""));
    EXPECT_EQ(DocumentMode(), 1);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(DocumentGuardTest, ARefusalClosesNothingAndLeavesTheMode) {
    NewDocument();
    NewDocument();
    Windows().AddAnswer(Box(IDNO));
    EXPECT_FALSE(CheckSingleDocument(""));
    EXPECT_EQ(acDocManager->documentCount(), 3);
    EXPECT_EQ(DocumentMode(), 0);
    EXPECT_EQ(Windows().Shown().back().type, MB_YESNO | MB_ICONINFORMATION);
}

TEST_F(DocumentGuardTest, AgreeingClosesTheOtherDrawings) {
    NewDocument();
    const AcApDocument* const current = acDocManager->curDocument();
    NewDocument();
    InApplicationContext(
        [current] { acDocManager->activateDocument(const_cast<AcApDocument*>(current)); });
    Windows().AddAnswer(Box(IDYES));
    EXPECT_TRUE(CheckSingleDocument(""));
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(acDocManager->curDocument(), current);
    EXPECT_EQ(DocumentMode(), 1);
}

TEST_F(DocumentGuardTest, ADrawingWithChangesIsNotClosedAndStopsTheCommand) {
    acDocManager->curDocument()->database()->setModified(true);
    NewDocument();
    Windows().AddAnswer(Box(IDYES));
    EXPECT_FALSE(CheckSingleDocument(""));
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_EQ(Printed(), "\n文档无法自动关闭,请使用sdi命令设置成单位档模式来执行本命令.\n");
    EXPECT_EQ(DocumentMode(), 0);
}

TEST_F(DocumentGuardTest, RestoresTheRecordedModeWhateverItWas) {
    WriteText("settings.ini", "[MDI]\r\nMDIMODE=0\r\n");
    SetDocumentMode(1);
    RestoreDocumentMode();
    EXPECT_TRUE(IsMultiDocumentMode());
    WriteText("settings.ini", "[MDI]\r\n");
    RestoreDocumentMode();
    EXPECT_FALSE(IsMultiDocumentMode()) << "single-document mode is the default";
}

}  // namespace
