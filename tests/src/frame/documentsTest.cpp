#include "src/frame/documents.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/ed/user_break.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

class DocumentSwitchingTest : public FrameFixture {
protected:
    void SetUp() override {
        FrameFixture::SetUp();
        MakeDrawing("a.dwg");
        MakeDrawing("b.dwg");
    }
    std::string Both() const { return Path("a.dwg") + "|" + Path("b.dwg"); }
};

TEST_F(DocumentSwitchingTest, MultiModeOpensEachFromEitherContext) {
    EXPECT_EQ(OpenDocument(Both(), kZoomAll, false), Acad::eOk);
    EXPECT_EQ(acDocManager->documentCount(), 3);
    EXPECT_EQ(CurrentDrawing(), "b.dwg");
    EXPECT_EQ(acDocManager->takePendingInput(), "zoom a ");

    InApplicationContext([this] {
        EXPECT_EQ(OpenDocument(Path("a.dwg"), kZoomNone, true), Acad::eOk);
        EXPECT_EQ(CurrentDrawing(), "a.dwg");
        EXPECT_EQ(acDocManager->curDocument()->lockMode(), AcAp::kWrite);
        EXPECT_EQ(CloseCurrentDocument(true), Acad::eOk);
    });
    EXPECT_EQ(acDocManager->documentCount(), 2);

    ed::SetBreakCheck([] { return true; });
    EXPECT_EQ(OpenDocument(Both(), kZoomNone, false), Acad::eOk);
    ed::SetBreakCheck(nullptr);
    EXPECT_EQ(CurrentDrawing(), "a.dwg") << "the person has had enough after the first";
}

TEST_F(DocumentSwitchingTest, AFailedOpenGivesItsStatusAndTheOthersOpen) {
    EXPECT_EQ(OpenDocument(Path("missing.dwg") + "|" + Path("a.dwg"), kZoomNone, false),
              Acad::eDrawingNotOpened);
    EXPECT_EQ(CurrentDrawing(), "a.dwg");
    SetDocumentMode(1);
    EXPECT_EQ(OpenDocument(Path("missing.dwg"), kZoomExtents, false), Acad::eDrawingNotOpened);
    EXPECT_EQ(CurrentDrawing(), "a.dwg");
    EXPECT_EQ(acDocManager->takePendingInput(), "") << "nothing to zoom";
}

TEST_F(DocumentSwitchingTest, TheBodyRefusesToRunInADocumentsContext) {
    OpenRequest request{.paths = Path("a.dwg")};
    OpenRequestedDocuments(&request);
    EXPECT_NE(request.status, Acad::eOk);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(Printed(), "\nERROR: in Document context : " + CurrentDrawing() + "\n");
}

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
