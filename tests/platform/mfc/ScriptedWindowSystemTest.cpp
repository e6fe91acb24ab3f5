#include "platform/mfc/ScriptedWindowSystem.h"

#include <gtest/gtest.h>

#include "platform/mfc/CDialog.h"
#include "platform/mfc/CListBox.h"
#include "platform/mfc/CPropertySheet.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/win32/code_page.h"
#include "tests/platform/mfc/TestModule.h"

namespace {

/// A page whose lists are filled; it counts selections and presses.
class ChoicePage : public CPropertyPage {
public:
    ChoicePage() : CPropertyPage(TestModule::kChoice) {}
    int selections = 0;
    int presses = 0;
    std::vector<int> chosen;

    CListBox& Samples() { return *static_cast<CListBox*>(GetDlgItem(2001)); }
    void OnOK() override {
        int indexes[8] = {};
        const int count = Samples().GetSelItems(8, indexes);
        chosen.assign(indexes, indexes + count);
        CPropertyPage::OnOK();
    }

protected:
    BOOL OnInitDialog() override {
        auto* boreholes = static_cast<CListBox*>(GetDlgItem(2008));
        boreholes->AddString("*ZK1");
        boreholes->AddString("ZK2");
        for (const char* sample : {"*1-1", "1-1", "*1-2", "1-3"}) {
            Samples().AddString(sample);
        }
        return TRUE;
    }
    void OnSelect() { ++selections; }
    void OnPress() { ++presses; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(ChoicePage, CPropertyPage)
ON_LBN_SELCHANGE(2008, OnSelect)
ON_LBN_SELCHANGE(2001, OnSelect)
ON_BN_CLICKED(2037, OnPress)
END_MESSAGE_MAP()

class OptionsPage : public CPropertyPage {
public:
    OptionsPage() : CPropertyPage(TestModule::kOptions) {}
    int clicks = 0;

protected:
    void OnClick() { ++clicks; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(OptionsPage, CPropertyPage)
ON_BN_CLICKED(2035, OnClick)
END_MESSAGE_MAP()

/// A sheet of three pages, all made.
class Sheet : public CPropertySheet {
public:
    Sheet() : CPropertySheet("sheet") {
        AddPage(&choice);
        AddPage(&options);
        AddPage(&notes);
    }
    ChoicePage choice;
    OptionsPage options;
    CPropertyPage notes{TestModule::kNotes};

    BOOL OnInitDialog() override {
        CPropertySheet::OnInitDialog();
        SetActivePage(2);
        SetActivePage(1);
        return SetActivePage(0);
    }
};

/// Does not let itself be cancelled.
class StubbornDialog : public CDialog {
public:
    StubbornDialog() : CDialog(TestModule::kNotes) {}

protected:
    void OnOK() override { AfxMessageBox("not yet"); }
    void OnCancel() override { AfxMessageBox("never"); }
};

}  // namespace

TEST(ScriptedWindowSystem, AnswersDoWhatAUserWouldDo) {
    TestModule module;
    module.Answer({"@select 2008 ZK1", "@select 2001 1-1 1-2 1-3", "@select 2001 1-2",
                   "@press 2037", "@check 2035 on", "@check 2035 on", "@press ok"});
    Sheet sheet;
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(module.windows.Error(), "");
    EXPECT_EQ(sheet.choice.selections, 5);
    EXPECT_EQ(sheet.choice.chosen, (std::vector<int>{1, 3}))
        << "the text as it stands before the one with a mark; the second click turns off";
    EXPECT_EQ(sheet.choice.presses, 1);
    EXPECT_EQ(sheet.options.clicks, 1) << "on already";
}

TEST(ScriptedWindowSystem, AnIdIsLookedForInFrontFirst) {
    TestModule module;
    // 2037 is a button of the first page and a check box of the second.
    module.Answer({"@press 2037", "@page 2008", "@press 2037"});
    Sheet sheet;
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.choice.presses, 1);
    EXPECT_EQ(module.windows.Error(), "@press 2037: control 2037 is no button");

    module.windows.Reset();
    module.Answer({"@check 2035 on", "@check 2037 on"});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(module.windows.Error(), "@check 2037 on: control 2037 is disabled")
        << "the page of the control used last is in front";
}

TEST(ScriptedWindowSystem, WhatCannotBeAnsweredFailsTheRun) {
    const std::pair<const char*, const char*> rows[] = {
        {"@select 2001 1-9", "control 2001 has no item 1-9"},
        {"@select 2001 1-3 1-9", "control 2001 has no item 1-9"},
        {"@select 2008 ZK1 ZK2", "control 2008 takes one item"},
        {"@select 2013 x", "control 2013 is no list"},
        {"@type 4711 x", "there is no control 4711"},
        {"@type 2001 x", "control 2001 is no edit field or date picker"},
        {"@type 2030 2024-02-30", "not a date YYYY-MM-DD: 2024-02-30"},
        {"@type 2030 2024-2-3", "not a date YYYY-MM-DD: 2024-2-3"},
        {"@type 2030 2024--2-03", "not a date YYYY-MM-DD: 2024--2-03"},
        {"@check 2013 on", "control 2013 is no check box"},
        {"@press 2035", "control 2035 is no button"},
        {"@page 999", "there is no page 999"},
        {"@answer yes", "no message box is shown"},
    };
    for (const auto& [answer, reason] : rows) {
        TestModule module;
        module.Answer({answer, "@press ok"});
        Sheet sheet;
        EXPECT_EQ(sheet.DoModal(), IDCANCEL) << answer;
        EXPECT_EQ(module.windows.Error(), std::string(answer) + ": " + reason);
        EXPECT_EQ(module.windows.LeftAnswers().size(), 1U);
    }
}

TEST(ScriptedWindowSystem, AFailedRunCancelsAllThatFollows) {
    TestModule module;
    module.Answer({"@press 4711", "@press ok", "@answer no"});
    Sheet sheet;
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(AfxMessageBox("?", MB_YESNO), IDYES) << "the default button";
    EXPECT_EQ(module.windows.LeftAnswers().size(), 2U);
    module.windows.Reset();
    module.Answer({"@press ok"});
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_FALSE(module.windows.Failed());
}

TEST(ScriptedWindowSystem, BoxesTakeAnswersForBoxesOnly) {
    TestModule module;
    std::string heard;
    module.windows.SetBoxSink([&](const mfc::MessageBoxRequest& box) { heard += box.text + "|"; });
    EXPECT_EQ(AfxMessageBox("first", MB_YESNO | MB_ICONINFORMATION), IDYES);
    EXPECT_EQ(AfxMessageBox("second", MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(AfxMessageBox("third", MB_YESNOCANCEL | MB_DEFBUTTON3), IDCANCEL);
    module.Answer({"@press ok", "@answer no"});
    EXPECT_EQ(MessageBox(nullptr, "fourth", "caption", MB_YESNO), IDYES)
        << "the answer in front is for a dialog";
    module.windows.Reset();
    module.Answer({"@answer no", "@answer yes"});
    EXPECT_EQ(AfxMessageBox("fifth", MB_YESNO), IDNO);
    EXPECT_EQ(AfxMessageBox("sixth"), IDOK);
    EXPECT_EQ(module.windows.Error(), "@answer yes: the message box has no such button");
    EXPECT_EQ(heard, "first|second|third|fourth|fifth|sixth|");
    ASSERT_EQ(module.windows.Shown().size(), 2U);
    EXPECT_EQ(module.windows.Shown()[0].text, "fifth");
    EXPECT_EQ(module.windows.Shown()[0].answer, IDNO);
}

TEST(ScriptedWindowSystem, ADialogThatStaysOpenTakesTheNextAnswers) {
    TestModule module;
    module.Answer({"@press ok", "@press cancel", "@press ok"});
    EXPECT_EQ(StubbornDialog().DoModal(), IDCANCEL) << "ended against its will";
    EXPECT_TRUE(module.windows.LeftAnswers().empty());
    EXPECT_EQ(module.windows.Error(), "");
    std::string shown;
    for (const mfc::ShownWindow& window : module.windows.Shown()) {
        shown += window.text + "|";
    }
    EXPECT_EQ(shown, "|not yet|never|not yet|never|");
    EXPECT_EQ(module.windows.Shown()[0].caption, "标注"_gbk);
    EXPECT_EQ(module.windows.Shown()[0].answer, IDCANCEL);
}

TEST(ScriptedWindowSystem, ASourceIsAskedUntilItHasNoMore) {
    TestModule module;
    int asked = 0;
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        const mfc::DialogModel* page = dynamic_cast<mfc::SheetModel&>(window).ActiveDialog();
        ++asked;
        if (asked == 1) {
            return {{mfc::Answer::Kind::Select, 2001, {"1-3"}}};
        }
        EXPECT_EQ(dynamic_cast<mfc::ListBoxModel*>(page->Find(2001))->SelectedCount(), 1);
        return {{mfc::Answer::Kind::Press, IDOK}};
    });
    Sheet sheet;
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(asked, 2);

    module.windows.SetAnswerSource([&](mfc::FrameModel&) -> std::vector<mfc::Answer> {
        module.windows.Fail("borehole ZK9 is not offered");
        return {{mfc::Answer::Kind::Press, IDOK}};
    });
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(module.windows.Error(), "borehole ZK9 is not offered");

    module.windows.Reset();
    module.windows.SetAnswerSource([](mfc::FrameModel&) -> std::vector<mfc::Answer> {
        return {{mfc::Answer::Kind::Press, IDOK}};
    });
    EXPECT_EQ(StubbornDialog().DoModal(), IDCANCEL) << "not for ever";
    EXPECT_EQ(module.windows.Error(), "the dialog stays open whatever is answered");
}

TEST(ScriptedWindowSystemDeathTest, WithoutAWindowSystemNobodyCouldAnswer) {
    EXPECT_DEATH(AfxMessageBox("text"), "no window system is set");
}

TEST(DialogAnswer, LinesAreReadAndWritten) {
    for (const char* line : {"@page 604", "@select 2001 1-1 \"a b\" *1-2", "@type 2013 \"\"",
                             "@type 2013 \"a \"\"b\"\"\"", "@check 2026 on", "@check 2026 off",
                             "@press 2037", "@press ok", "@press cancel", "@answer yes",
                             "@answer no", "@answer ok", "@type 2013 勘察院"}) {
        mfc::Answer answer{};
        std::string error;
        ASSERT_TRUE(mfc::ParseAnswer(line, answer, error)) << line << ": " << error;
        EXPECT_EQ(mfc::DescribeAnswer(answer), line);
    }
    mfc::Answer answer{};
    std::string error;
    ASSERT_TRUE(mfc::ParseAnswer("  @select\t2001  \"1 \"\"-1\"\r", answer, error));
    EXPECT_EQ(answer.texts, std::vector<std::string>{"1 \"-1"});
}

TEST(DialogAnswer, BadLinesAreRefusedByReason) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "an answer is one of @page, @select, @type, @check, @press, @answer and @show"},
        {"@selects 1 a",
         "an answer is one of @page, @select, @type, @check, @press, @answer and @show"},
        {"@select 2001", "@select ID TEXT... (a text with blanks stands in double quotes)"},
        {"@select ZK1 a", "@select ID TEXT... (a text with blanks stands in double quotes)"},
        {"@type 2013 a b", "@type ID TEXT (a text with blanks stands in double quotes)"},
        {"@check x on", "@check ID on|off (a text with blanks stands in double quotes)"},
        {"@check 0 on", "@check ID on|off (a text with blanks stands in double quotes)"},
        {"@check 65535 on", "@check ID on|off (a text with blanks stands in double quotes)"},
        {"@check 2026 yes", "@check ID on|off (a text with blanks stands in double quotes)"},
        {"@press yes", "@press ID|ok|cancel (a text with blanks stands in double quotes)"},
        {"@answer maybe", "@answer yes|no|ok|cancel (a text with blanks stands in double quotes)"},
        {"@page", "@page NUMBER (a text with blanks stands in double quotes)"},
        {"@type 2013 \"a", "a quoted text has no end"},
        {"@type 2013 😀", "a text that GBK cannot write: 😀"},
    };
    for (const auto& [line, fault] : rows) {
        mfc::Answer answer{mfc::Answer::Kind::Box, 99};
        std::string error;
        EXPECT_FALSE(mfc::ParseAnswer(line, answer, error)) << line;
        EXPECT_EQ(error, fault);
        EXPECT_EQ(answer.id, 99) << "unchanged";
    }
}
