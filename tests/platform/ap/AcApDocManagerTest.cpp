#include "platform/ap/AcApDocManager.h"

#include <filesystem>
#include <functional>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/db/AcDbHostApplicationServices.h"
#include "platform/db/AcDbLine.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/afx.h"
#include "platform/mfc/resources.h"
#include "tests/platform/db/Opened.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {
void InApplicationContext(const std::function<void()>& work) {
    acDocManager->executeInApplicationContext(
        [](void* data) { (*static_cast<const std::function<void()>*>(data))(); },
        const_cast<std::function<void()>*>(&work));
}

void Draw(AcDbDatabase& database) {
    AppendTo(database, std::make_unique<AcDbLine>());
}

/// A scratch folder with drawings A.dwg and B.dwg, and no document open.
class AcApDocManagerTest : public testing::Test {
protected:
    AcApDocManagerTest() {
        for (const char* name : {"A.dwg", "B.dwg"}) {
            AcDbDatabase drawing(true, true);
            EXPECT_EQ(drawing.saveAs(Windows(name).c_str()), Acad::eOk) << drawing.lastFileError();
        }
        sink_ = ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
    }
    ~AcApDocManagerTest() override {
        InApplicationContext([] {
            while (acDocManager->curDocument() != nullptr) {
                acDocManager->closeDocument(acDocManager->curDocument());
            }
        });
        ed::SetCommandLineSink(sink_);
    }

    std::string Windows(const std::string& name) const { return folder_.Windows(name); }
    /// Opens the drawing as a further document.
    Acad::ErrorStatus Open(const std::string& name) const {
        Acad::ErrorStatus status = Acad::eNotApplicable;
        InApplicationContext(
            [&] { status = acDocManager->appContextOpenDocument(Windows(name).c_str()); });
        return status;
    }
    static AcApDocument* Current() { return acDocManager->curDocument(); }
    static AcDbDatabase* Working() { return acdbHostApplicationServices()->workingDatabase(); }

    ScratchFolder folder_;
    ed::CommandLineSink sink_;
    std::string printed_;
};
}  // namespace

TEST_F(AcApDocManagerTest, TheWorkingDatabaseFollowsTheCurrentDocument) {
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(Working(), nullptr);
    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    AcApDocument* const a = Current();
    ASSERT_EQ(Open("B.dwg"), Acad::eOk);
    AcApDocument* const b = Current();
    EXPECT_NE(a, b);
    EXPECT_EQ(Working(), b->database());
    InApplicationContext([a] { EXPECT_EQ(acDocManager->activateDocument(a), Acad::eOk); });
    EXPECT_EQ(Working(), a->database());
    InApplicationContext([] { acDocManager->appContextNewDocument(); });
    EXPECT_EQ(acDocManager->documentCount(), 3);
    EXPECT_TRUE(Current()->isUntitled());
    EXPECT_FALSE(Current()->database()->isModified());
    InApplicationContext([a] { EXPECT_EQ(acDocManager->closeDocument(a), Acad::eOk); });
    EXPECT_TRUE(Current()->isUntitled()) << "closing another document leaves the current one";
    InApplicationContext([] { acDocManager->closeDocument(Current()); });
    EXPECT_EQ(Current(), b);
    EXPECT_EQ(Working(), b->database());
}

TEST_F(AcApDocManagerTest, OnlyTheApplicationContextOpensAndCloses) {
    EXPECT_EQ(acDocManager->appContextOpenDocument(Windows("A.dwg").c_str()), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->appContextNewDocument(), Acad::eInvalidInput);
    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    EXPECT_EQ(acDocManager->closeDocument(Current()), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->activateDocument(Current()), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_THROW(InApplicationContext([] { throw std::runtime_error("a command fails"); }),
                 std::runtime_error);
    EXPECT_FALSE(acDocManager->isApplicationContext());
}

TEST_F(AcApDocManagerTest, ADrawingIsOpenOnceUnderWhateverSpelling) {
    ASSERT_EQ(Open("A"), Acad::eOk) << "the extension may be missing";
    AcApDocument* const a = Current();
    ASSERT_EQ(Open("B.dwg"), Acad::eOk);
    ASSERT_EQ(Open("a.DWG"), Acad::eOk);
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_EQ(Current(), a);

    AcDbDatabase pointed(true, true);
    ASSERT_EQ(pointed.saveAs(Windows("ZK3.5-1.dwg").c_str()), Acad::eOk);
    EXPECT_EQ(Open("ZK3.5-1"), Acad::eOk) << "a point in the name is no extension";
}

TEST_F(AcApDocManagerTest, AFileThatIsNoDrawingIsRefusedWithTheReason) {
    for (const char* name : {"missing.dwg", "."}) {
        printed_.clear();
        EXPECT_EQ(Open(name), Acad::eDrawingNotOpened);
        EXPECT_EQ(static_cast<int>(Open(name)), 53);
        EXPECT_THAT(printed_, HasSubstr(fs::path(folder_.Path()).filename().string())) << name;
    }
    EXPECT_EQ(acDocManager->documentCount(), 0);

    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    AcApDocument* const a = Current();
    EXPECT_EQ(acedSyncFileOpen(Windows("missing").c_str()), Acad::eDrawingNotOpened);
    EXPECT_EQ(Current(), a) << "the current document stays";
}

TEST_F(AcApDocManagerTest, SyncOpenReplacesTheCurrentDocument) {
    ASSERT_EQ(acedSyncFileOpen(Windows("A.dwg").c_str()), Acad::eOk) << "with none open";
    EXPECT_EQ(acDocManager->documentCount(), 1);
    Draw(*Current()->database());
    std::vector<std::string> asked;
    bool mayLeave = false;
    acDocManager->setLeaveQuestion([&](const AcApDocument& document) {
        asked.emplace_back(document.fileName());
        return mayLeave;
    });
    EXPECT_EQ(acedSyncFileOpen(Windows("B").c_str()), Acad::eDrawingNotOpened);
    EXPECT_EQ(Current()->fileName(), Windows("A.dwg")) << "the user wants to keep it";
    mayLeave = true;
    ASSERT_EQ(acedSyncFileOpen(Windows("B").c_str()), Acad::eOk);
    ASSERT_EQ(acedSyncFileOpen(Windows("B").c_str()), Acad::eOk);
    acDocManager->setLeaveQuestion(nullptr);
    EXPECT_THAT(asked, ElementsAre(Windows("A.dwg"), Windows("A.dwg"))) << "B has no changes";
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(Current()->fileName(), Windows("B.dwg"));
    EXPECT_FALSE(Current()->isUntitled());
    EXPECT_EQ(Working(), Current()->database());
}

TEST_F(AcApDocManagerTest, CloseSentToAnotherDocumentIsCarriedOutUnlessItHasChanges) {
    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    AcApDocument* const a = Current();
    Draw(*a->database());
    ASSERT_EQ(Open("B.dwg"), Acad::eOk);
    InApplicationContext([] { acDocManager->appContextNewDocument(); });

    const std::unique_ptr<AcApDocumentIterator> walk(acDocManager->newAcApDocumentIterator());
    for (; !walk->done(); walk->step()) {
        EXPECT_EQ(acDocManager->sendStringToExecute(walk->document(), "close "), Acad::eOk);
    }
    EXPECT_EQ(acDocManager->documentCount(), 2) << "the changed one and the current one";
    EXPECT_EQ(acDocManager->takePendingInput(), "close ") << "the current one's host closes it";
    InApplicationContext([a] { acDocManager->activateDocument(a); });
    EXPECT_EQ(acDocManager->takePendingInput(), "") << "nor does it wait for a visit";
}

TEST_F(AcApDocManagerTest, PendingInputIsTakenWholeInTheOrderSent) {
    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    acDocManager->sendStringToExecute(Current(), "zoom e ");
    acDocManager->sendStringToExecute(Current(), "qsave\n");
    EXPECT_EQ(acDocManager->takePendingInput(), "zoom e qsave\n");
    EXPECT_EQ(acDocManager->takePendingInput(), "");
    EXPECT_EQ(acDocManager->sendStringToExecute(nullptr, "zoom e "), Acad::eNoDocument);
}

TEST_F(AcApDocManagerTest, LocksAreCountedAndTheStrongestShows) {
    ASSERT_EQ(Open("A.dwg"), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->unlockDocument(Current()), Acad::eNotApplicable);
    acDocManager->lockDocument(Current(), AcAp::kWrite);
    acDocManager->lockDocument(Current(), AcAp::kRead);
    EXPECT_EQ(Current()->lockMode(), AcAp::kWrite);
    EXPECT_EQ(acDocManager->unlockDocument(Current()), Acad::eOk);
    EXPECT_EQ(Current()->lockMode(), AcAp::kWrite);
    EXPECT_EQ(acDocManager->unlockDocument(Current()), Acad::eOk);
    EXPECT_EQ(Current()->lockMode(), AcAp::kNone);
}

TEST_F(AcApDocManagerTest, SavingGivesANameAndKeepsTheOldOneOnFailure) {
    InApplicationContext([] { acDocManager->appContextNewDocument(); });
    Draw(*Current()->database());
    EXPECT_EQ(acDocManager->saveDocument(Current()), Acad::eInvalidInput) << "it has no name yet";
    EXPECT_NE(acDocManager->saveDocument(Current(), Windows("no/folder/x").c_str()), Acad::eOk);
    EXPECT_TRUE(Current()->isUntitled());
    EXPECT_TRUE(Current()->database()->isModified());
    ASSERT_EQ(acDocManager->saveDocument(Current(), Windows("new").c_str()), Acad::eOk);
    EXPECT_EQ(Current()->fileName(), Windows("new.dwg"));
    EXPECT_FALSE(Current()->isUntitled());
    EXPECT_FALSE(Current()->database()->isModified());
    EXPECT_TRUE(fs::exists(folder_.Path("new.dwg")));
}

TEST_F(AcApDocManagerTest, ResourceHandlesNest) {
    const HINSTANCE before = AfxGetResourceHandle();
    const HINSTANCE outer = mfc::RegisterModule({});
    const HINSTANCE inner = mfc::RegisterModule({});
    acDocManager->pushResourceHandle(outer);
    acDocManager->pushResourceHandle(inner);
    EXPECT_EQ(AfxGetResourceHandle(), inner);
    acDocManager->popResourceHandle();
    EXPECT_EQ(AfxGetResourceHandle(), outer);
    acDocManager->popResourceHandle();
    EXPECT_EQ(AfxGetResourceHandle(), before);
    acDocManager->popResourceHandle();
    EXPECT_EQ(AfxGetResourceHandle(), before);
    mfc::UnregisterModule(inner);
    mfc::UnregisterModule(outer);
}
