#include "host/CommandInterpreter.h"

#include <gmock/gmock.h>

#include "platform/ed/AcEdCommandStack.h"
#include "platform/ed/AcEditor.h"
#include "platform/ed/entity_selection.h"
#include "platform/mfc/afx.h"
#include "platform/win32/window_message.h"
#include "tests/host/HostFixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {
/// What commands and reactors of these tests write down.
std::vector<std::string> heard;

void NoteContext() {
    heard.push_back(acDocManager->isApplicationContext() ? "application" : "document");
}
void SendTwo() {
    acDocManager->sendStringToExecute(acDocManager->curDocument(), "ZOOM E NOTE ");
    acDocManager->sendStringToExecute(acDocManager->curDocument(), "SESSIONNOTE\n");
    heard.emplace_back("sent");
}
void PickOne() {
    ads_name name;
    ads_point point;
    AcDbObjectId id;
    if (acedEntSel("\nPick: ", name, point) != RTNORM || acdbGetObjectId(id, name) != Acad::eOk) {
        heard.emplace_back("nothing");
        return;
    }
    heard.push_back("picked at " + std::to_string(static_cast<int>(point[0])));
}

class CommandInterpreterTest : public HostFixture, public AcEditorReactor {
protected:
    CommandInterpreterTest() {
        heard.clear();
        acedEditor->addReactor(this);
        acedRegCmds->addCommand("TEST", "NOTE", "JI", ACRX_CMD_MODAL, NoteContext);
        acedRegCmds->addCommand("TEST", "SESSIONNOTE", "SESSIONNOTE", ACRX_CMD_SESSION,
                                NoteContext);
        acedRegCmds->addCommand("TEST", "SENDTWO", "SENDTWO", ACRX_CMD_MODAL, SendTwo);
        acedRegCmds->addCommand("TEST", "PICKONE", "PICKONE", ACRX_CMD_MODAL, PickOne);
    }
    ~CommandInterpreterTest() override {
        acedRegCmds->removeGroup("TEST");
        acedEditor->removeReactor(this);
    }

    void commandWillStart(const char* name) override {
        heard.push_back(std::string("start ") + name);
        if (name == std::string("OPEN") && picksWhenOpening_) {
            PickOne();
        }
    }
    void commandEnded(const char* name) override { heard.push_back(std::string("end ") + name); }

    bool picksWhenOpening_ = false;
};
}  // namespace

TEST_F(CommandInterpreterTest, ReactorsHearTheGlobalNameAroundTheCommandInItsContext) {
    EXPECT_TRUE(Run("ji\nsessionnote\nsdi 0\n"));
    EXPECT_THAT(heard, ElementsAre("start NOTE", "document", "end NOTE", "start SESSIONNOTE",
                                   "application", "end SESSIONNOTE", "start SDI", "end SDI"));
    EXPECT_THAT(printed_, IsEmpty());
}

TEST_F(CommandInterpreterTest, AnUnknownCommandIsNamedAndTheRestRuns) {
    EXPECT_FALSE(Run("NOSUCH\nNOTE\n"));
    EXPECT_THAT(printed_, HasSubstr("Unknown command \"NOSUCH\""));
    EXPECT_THAT(heard, ElementsAre("start NOTE", "document", "end NOTE"));
}

TEST_F(CommandInterpreterTest, WhatACommandSendsRunsAfterItInOrder) {
    EXPECT_TRUE(Run("SENDTWO\nNOTE\n"));
    EXPECT_THAT(
        heard, ElementsAre("start SENDTWO", "sent", "end SENDTWO", "start ZOOM", "end ZOOM",
                           "start NOTE", "document", "end NOTE", "start SESSIONNOTE", "application",
                           "end SESSIONNOTE", "start NOTE", "document", "end NOTE"));
}

TEST_F(CommandInterpreterTest, TextSentToTheMainWindowIsCommandInput) {
    std::string text = "\x03NoSuchThere\n";
    COPYDATASTRUCT data{1, static_cast<DWORD>(text.size() + 1), text.data()};
    SendMessage(adsw_acadMainWnd(), WM_COPYDATA, reinterpret_cast<WPARAM>(adsw_acadMainWnd()),
                reinterpret_cast<LPARAM>(&data));
    EXPECT_FALSE(Run("NOTE\n"));
    EXPECT_THAT(printed_, HasSubstr("\"NoSuchThere\""));
}

TEST_F(CommandInterpreterTest, ArgumentsComeFromTheLineThenFromTheLinesAfterIt) {
    const std::string line = DrawLine(0, 0, 10, 0);
    EXPECT_TRUE(Run("MOVE " + line + "\n; between\n0,0\n5,5 NOTE\n"));
    EXPECT_THAT(heard, ElementsAre("start MOVE", "end MOVE", "start NOTE", "document", "end NOTE"));
    EXPECT_THAT(printed_, HasSubstr("Base point: "));

    printed_.clear();
    EXPECT_FALSE(Run("MOVE " + line + " 0,0")) << "the input ends";
    EXPECT_THAT(printed_, HasSubstr("MOVE: cancelled, nothing was given for \"Second point: \""));
    EXPECT_FALSE(Run("MOVE " + line + "\n\x03NOTE\n")) << "cancelled at the prompt";
    EXPECT_EQ(heard.back(), "end NOTE");
    EXPECT_FALSE(Run("OPEN \"no end\nNOTE\n"));
    EXPECT_THAT(printed_, HasSubstr("closing quote is missing: OPEN \"no end"));
}

TEST_F(CommandInterpreterTest, APickOfACommandIsTheNextWord) {
    DrawLine(40, 0, 40, 100);
    EXPECT_TRUE(Run("PICKONE 40.5,50\nPICKONE\n40,1\n"));
    EXPECT_THAT(heard, ElementsAre("start PICKONE", "picked at 40", "end PICKONE", "start PICKONE",
                                   "picked at 40", "end PICKONE"));
    EXPECT_THAT(printed_, HasSubstr("\nPick: "));
    heard.clear();
    Run("PICKONE 90,50\nPICKONE nowhere\nPICKONE #FFFF\nPICKONE");
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "nothing"), 4);
}

TEST_F(CommandInterpreterTest, AReactorsPickComesFromTheLinesAfterTheCommand) {
    const std::string line = DrawLine(0, 0, 10, 0);
    picksWhenOpening_ = true;
    Run("OPEN " + Path("missing.dwg") + "\n" + line + "\nNOTE\n");
    EXPECT_THAT(heard, ElementsAre("start OPEN", "picked at 0", "end OPEN", "start NOTE",
                                   "document", "end NOTE"));
    EXPECT_THAT(printed_, HasSubstr("missing.dwg"));
}

TEST_F(CommandInterpreterTest, WithoutADocumentModulesStartOneAndSingleDocumentModeKeepsOne) {
    for (const char* command : {"NOTE", "SESSIONNOTE"}) {
        EXPECT_TRUE(Run("CLOSE\n"));
        EXPECT_TRUE(Run(command)) << printed_;
        EXPECT_TRUE(Current()->isUntitled()) << command;
    }
    EXPECT_TRUE(Run("CLOSE\n"));
    heard.clear();
    EXPECT_FALSE(Run("QSAVE\nZOOM E\n")) << "what works on a drawing's contents finds none";
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_THAT(printed_, HasSubstr("No drawing is open"));
    EXPECT_FALSE(Run("CLOSE\n"));
    EXPECT_TRUE(Run("NEW\nNOTE\n"));

    EXPECT_TRUE(Run("SDI 1\nCLOSE\nNOTE\nSDI 0\n"));
    EXPECT_TRUE(Current()->isUntitled());
}
