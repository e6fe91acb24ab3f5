#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/ed/AcEdCommandStack.h"
#include "platform/ed/AcEditor.h"
#include "platform/ed/adesk_results.h"
#include "platform/ed/command_line.h"
#include "platform/ed/system_variables.h"
#include "platform/rx/Acad.h"

using testing::ElementsAre;

namespace {
void DoNothing() {}

std::vector<std::string> GlobalNames(const AcEdCommandStack& stack) {
    std::vector<std::string> names;
    for (const AcEdCommand& command : stack.commands()) {
        names.push_back(command.globalName);
    }
    return names;
}

/// Writes down what it hears, and takes another reactor off the list if told so.
class Listener : public AcEditorReactor {
public:
    Listener(AcEditor& editor, std::vector<std::string>& heard, std::string name)
        : editor_(editor), heard_(heard), name_(std::move(name)) {}

    void commandWillStart(const char* command) override {
        heard_.push_back(name_ + " " + command);
        editor_.removeReactor(removes);
    }
    AcEditorReactor* removes = nullptr;

private:
    AcEditor& editor_;
    std::vector<std::string>& heard_;
    std::string name_;
};

resbuf Short(short value) {
    resbuf result;
    result.restype = RTSHORT;
    result.resval.rint = value;
    return result;
}
}  // namespace

TEST(AcEdCommandStackTest, NamesAreKnownByGroupWithoutRegardToCase) {
    AcEdCommandStack stack;
    EXPECT_EQ(stack.addCommand("GRDX", "CGRDX", "JI", ACRX_CMD_SESSION, DoNothing), Acad::eOk);
    EXPECT_EQ(stack.addCommand("OTHER", "cgrdx", nullptr, ACRX_CMD_MODAL, DoNothing), Acad::eOk);
    EXPECT_EQ(stack.addCommand("grdx", "cgrdx", "X", 0, DoNothing), Acad::eDuplicateKey);
    EXPECT_EQ(stack.addCommand("GRDX", "", "X", 0, DoNothing), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand("GRDX", "X", "X", 0, nullptr), Acad::eInvalidInput);

    ASSERT_NE(stack.lookupCmd("ji"), nullptr);
    EXPECT_EQ(stack.lookupCmd("ji")->flags, ACRX_CMD_SESSION);
    EXPECT_EQ(stack.lookupCmd("nothing"), nullptr);
    EXPECT_EQ(stack.removeGroup("Grdx"), Acad::eOk);
    EXPECT_EQ(stack.removeGroup("GRDX"), Acad::eKeyNotFound);
    EXPECT_THAT(GlobalNames(stack), ElementsAre("cgrdx"));
}

TEST(AcEditorTest, CommandStackAndEditorHaveClassRecords) {
    EXPECT_TRUE(acedRegCmds->isKindOf(AcEdCommandStack::desc()));
    EXPECT_STREQ(acedEditor->isA()->name(), "AcEditor");
}

TEST(AcEditorTest, AReactorTakenOffWhileOthersAreToldHearsNothing) {
    AcEditor editor;
    std::vector<std::string> heard;
    Listener first(editor, heard, "first");
    Listener second(editor, heard, "second");
    Listener third(editor, heard, "third");
    for (Listener* listener : {&first, &second, &third, &first}) {
        editor.addReactor(listener);
    }
    first.removes = &second;
    editor.tellCommandWillStart("OPEN");
    first.removes = &first;
    editor.tellCommandWillStart("NEW");
    editor.tellCommandWillStart("QUIT");
    EXPECT_THAT(heard,
                ElementsAre("first OPEN", "third OPEN", "first NEW", "third NEW", "third QUIT"));
}

TEST(CommandLineTest, TextsOfAnyLengthReachTheSinkInForce) {
    std::string printed;
    const auto outer = ed::SetCommandLineSink([&](const std::string& text) { printed += text; });
    const std::string longText(5000, 'x');
    EXPECT_EQ(acutPrintf("\n%s%d", longText.c_str(), 7), RTNORM);
    EXPECT_EQ(printed, "\n" + longText + "7");
    ed::SetCommandLineSink(nullptr);
    EXPECT_EQ(acutPrintf("unheard"), RTNORM);
    EXPECT_EQ(printed.size(), longText.size() + 2);
    ed::SetCommandLineSink(outer);
}

TEST(SystemVariablesTest, SdiTakesItsTwoValuesOnly) {
    resbuf before;
    ASSERT_EQ(acedGetVar("sdi", &before), RTNORM);
    const resbuf one = Short(1);
    const resbuf two = Short(2);
    resbuf text;
    text.restype = RTSTR;
    EXPECT_EQ(acedSetVar("Sdi", &one), RTNORM);
    EXPECT_EQ(acedSetVar("SDI", &two), RTERROR);
    EXPECT_EQ(acedSetVar("SDI", &text), RTERROR);
    EXPECT_EQ(acedSetVar("NOSUCH", &one), RTERROR);
    resbuf after;
    ASSERT_EQ(acedGetVar("SDI", &after), RTNORM);
    EXPECT_EQ(after.restype, RTSHORT);
    EXPECT_EQ(after.resval.rint, 1);
    EXPECT_EQ(acedGetVar("NOSUCH", &after), RTERROR);
    acedSetVar("SDI", &before);
}
