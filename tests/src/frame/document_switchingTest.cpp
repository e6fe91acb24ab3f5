#include "src/frame/documents.h"

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

}  // namespace
