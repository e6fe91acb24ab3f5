#include "platform/mfc/CDialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/CListBox.h"
#include "platform/mfc/DialogModel.h"
#include "platform/win32/window_message.h"
#include "tests/platform/mfc/TestModule.h"

namespace {

class NotesDialog : public CDialog {
public:
    NotesDialog() : CDialog(TestModule::kNotes) {}

    CString name = "旧名"_gbk;
    CTime date{2024, 3, 7, 9, 5, 2};
    bool refuseExchange = false;
    std::function<BOOL(NotesDialog&)> onInit;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        return onInit ? onInit(*this) : TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override {
        DDX_Text(pDX, 2013, name);
        if (pDX->m_bSaveAndValidate != FALSE && refuseExchange) {
            pDX->Fail();
        }
        DDX_DateTimeCtrl(pDX, 2030, date);
    }
};

/// Its lists tell what was clicked.
class ChoiceDialog : public CDialog {
public:
    ChoiceDialog() : CDialog(TestModule::kChoice) {}
    std::string log;
    CString chosen;

protected:
    CListBox boreholes_;

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        boreholes_.AddString("ZK2");
        boreholes_.AddString("zk1");
        return TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override {
        DDX_Control(pDX, 2008, boreholes_);
        DDX_LBString(pDX, 2008, chosen);
    }
    virtual void OnBoreholes() {
        UpdateData(TRUE);
        log += std::string("[") + static_cast<const char*>(chosen) + "]";
    }
    void OnDelete() { log += "delete"; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(ChoiceDialog, CDialog)
ON_LBN_SELCHANGE(2008, OnBoreholes)
ON_BN_CLICKED(2037, OnDelete)
END_MESSAGE_MAP()

/// Handles one command anew and leaves the other to its base.
class DerivedChoice : public ChoiceDialog {
protected:
    void OnBoreholes() override { log += "derived"; }
    void OnDeleteAnew() { log += "anew"; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(DerivedChoice, ChoiceDialog)
ON_BN_CLICKED(2037, OnDeleteAnew)
END_MESSAGE_MAP()

}  // namespace

TEST(CDialog, FieldsGoToTheControlsAndBackOnOk) {
    TestModule module;
    module.Answer({"@type 2013 \"新 名\"", "@type 2030 2023-12-31", "@press ok"});
    NotesDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_STREQ(dialog.name, "新 名"_gbk);
    EXPECT_STREQ(dialog.date.Format("%Y-%m-%d %H:%M:%S"), "2023-12-31 09:05:02");
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "the window is gone";
    EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "and can come again";
    EXPECT_STREQ(dialog.name, "新 名"_gbk);
}

TEST(CDialog, CancelLeavesTheFields) {
    TestModule module;
    module.Answer({"@type 2013 新名", "@press cancel"});
    NotesDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_STREQ(dialog.name, "旧名"_gbk);
}

TEST(CDialog, AFailedExchangeKeepsTheDialogOpen) {
    TestModule module;
    module.Answer({"@type 2013 新名", "@press ok", "@press cancel"});
    NotesDialog dialog;
    dialog.refuseExchange = true;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(module.windows.LeftAnswers().empty());
    EXPECT_EQ(dialog.date.GetYear(), 2024) << "not exchanged after the failure";
}

TEST(CDialog, InitialisationDecidesFocusAndMayEndIt) {
    TestModule module;
    std::vector<int> focused;
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) {
        focused.push_back(dynamic_cast<mfc::DialogModel&>(window).Focus()->Id());
        return std::vector<mfc::Answer>();
    });
    NotesDialog dialog;
    dialog.DoModal();
    dialog.onInit = [](NotesDialog& shown) {
        shown.GetDlgItem(2030)->SetFocus();
        return FALSE;
    };
    dialog.DoModal();
    EXPECT_EQ(focused, (std::vector<int>{2013, 2030}));

    dialog.onInit = [](NotesDialog& shown) {
        shown.EndDialog(77);
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), 77);
    EXPECT_EQ(module.windows.Shown().size(), 2U) << "never shown";
}

TEST(CDialog, WithoutItsTemplateItIsNotShown) {
    TestModule module;
    EXPECT_EQ(CDialog(999).DoModal(), -1);
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(NotesDialog().DoModal(), -1);
    EXPECT_TRUE(module.windows.Shown().empty());
}

TEST(CDialog, CommandsGoToTheMostDerivedHandler) {
    TestModule module;
    module.Answer({"@select 2008 ZK2", "@press 2037", "@press cancel"});
    ChoiceDialog base;
    EXPECT_EQ(base.DoModal(), IDCANCEL);
    EXPECT_EQ(base.log, "[ZK2]delete");

    module.Answer({"@select 2008 zk1", "@press 2037"});
    DerivedChoice derived;
    EXPECT_EQ(derived.DoModal(), IDCANCEL);
    EXPECT_EQ(derived.log, "derivedanew");
    EXPECT_FALSE(derived.OnCmdMsg(2037, LBN_SELCHANGE, nullptr, nullptr)) << "another notification";
    EXPECT_EQ(module.windows.Error(), "");
}

TEST(CDialog, ADialogThatThrowsLeavesNoWindow) {
    TestModule module;
    NotesDialog dialog;
    dialog.onInit = [](NotesDialog& shown) -> BOOL {
        CString text;
        CDataExchange exchange(&shown, TRUE);
        DDX_Text(&exchange, 4711, text);
        return TRUE;
    };
    EXPECT_THROW(dialog.DoModal(), std::logic_error) << "no such control";
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    dialog.onInit = [](NotesDialog& shown) -> BOOL {
        int checked = 0;
        CDataExchange exchange(&shown, FALSE);
        DDX_Check(&exchange, 2013, checked);
        return TRUE;
    };
    EXPECT_THROW(dialog.DoModal(), std::logic_error) << "a control of another kind";
}

TEST(CWnd, ObjectsAndWindowsFindEachOther) {
    TestModule module;
    NotesDialog dialog;
    const HWND foreign = win32::CreateWindow([](UINT, WPARAM, LPARAM) { return 0; });
    dialog.onInit = [](NotesDialog& shown) {
        CWnd* edit = shown.GetDlgItem(2013);
        EXPECT_EQ(CWnd::FromHandle(edit->m_hWnd), edit);
        EXPECT_EQ(edit->GetParent(), &shown);
        EXPECT_EQ(shown.GetDlgItem(4711), nullptr);
        EXPECT_EQ(shown.GetDlgItem(IDC_STATIC), nullptr);
        CWnd attached;
        attached.AttachModel(*edit->Model());
        EXPECT_EQ(shown.GetDlgItem(2013), &attached);
        attached.DetachModel();
        EXPECT_EQ(shown.GetDlgItem(2013), edit);
        EXPECT_FALSE(edit->EnableWindow(FALSE));
        EXPECT_TRUE(edit->EnableWindow(FALSE)) << "was disabled before";
        return TRUE;
    };
    dialog.DoModal();
    CWnd* window = CWnd::FromHandle(foreign);
    EXPECT_EQ(window->m_hWnd, foreign);
    EXPECT_EQ(CWnd::FromHandle(foreign), window);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    win32::DestroyWindow(foreign);
}
