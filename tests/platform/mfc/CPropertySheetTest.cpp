#include "platform/mfc/CPropertySheet.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "platform/mfc/CButton.h"
#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/SheetModel.h"
#include "platform/mfc/afx.h"
#include "platform/win32/window_message.h"
#include "tests/platform/mfc/TestModule.h"

namespace {

/// Writes down what happens to it.
class LoggedPage : public CPropertyPage {
public:
    LoggedPage(WORD number, char letter, std::string& log)
        : CPropertyPage(number), letter_(letter), log_(log) {}
    bool refuse = false;

protected:
    BOOL OnInitDialog() override {
        log_ += std::string("init") + letter_ + " ";
        return CPropertyPage::OnInitDialog();
    }
    void OnOK() override {
        log_ += std::string(refuse ? "refuse" : "ok") + letter_ + " ";
        if (!refuse) {
            CPropertyPage::OnOK();
        }
    }
    void OnCancel() override {
        log_ += std::string("cancel") + letter_ + " ";
        CPropertyPage::OnCancel();
    }

private:
    char letter_;
    std::string& log_;
};

class LoggedSheet : public CPropertySheet {
public:
    explicit LoggedSheet(UINT firstPage = 0)
        : CPropertySheet("颗粒分析成果图"_gbk, AfxGetMainWnd(), firstPage) {
        AddPage(&choice);
        AddPage(&options);
        AddPage(&notes);
    }
    std::string log;
    LoggedPage choice{TestModule::kChoice, 'C', log};
    LoggedPage options{TestModule::kOptions, 'O', log};
    LoggedPage notes{TestModule::kNotes, 'N', log};
    std::function<void(LoggedSheet&)> onInit;

    BOOL OnInitDialog() override {
        const BOOL result = CPropertySheet::OnInitDialog();
        if (onInit) {
            onInit(*this);
        }
        return result;
    }
};

}  // namespace

TEST(CPropertySheet, PagesAreMadeWhenTheyFirstComeToTheFront) {
    TestModule module;
    module.Answer({"@page 601", "@page 604", "@press ok"});
    LoggedSheet sheet;
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(sheet.log, "initC initN okC okN ") << "the page never seen is not asked";
}

TEST(CPropertySheet, CancelAsksEveryPageThatWasMade) {
    TestModule module;
    module.Answer({"@press cancel"});
    LoggedSheet sheet(1);
    sheet.onInit = [](LoggedSheet& shown) { EXPECT_TRUE(shown.SetActivePage(&shown.notes)); };
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.log, "initO initN cancelO cancelN ");
}

TEST(CPropertySheet, ActivationInInitialisationMakesAllPages) {
    TestModule module;
    int front = -1;
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) {
        front = dynamic_cast<mfc::SheetModel&>(window).ActivePage();
        return std::vector<mfc::Answer>();
    });
    LoggedSheet sheet;
    sheet.onInit = [](LoggedSheet& shown) {
        shown.SetActivePage(&shown.notes);
        shown.SetActivePage(1);
        EXPECT_EQ(shown.GetActivePage(), &shown.options);
        shown.SetActivePage(0);
        EXPECT_FALSE(shown.SetActivePage(3));
        EXPECT_FALSE(shown.SetActivePage(nullptr));
    };
    sheet.DoModal();
    EXPECT_EQ(sheet.log, "initC initN initO cancelC cancelO cancelN ");
    EXPECT_EQ(front, 0);
}

TEST(CPropertySheet, APageThatRefusesStopsOkAndComesToTheFront) {
    TestModule module;
    std::vector<int> fronts;
    LoggedSheet sheet;
    sheet.onInit = [](LoggedSheet& shown) {
        shown.SetActivePage(1);
        shown.SetActivePage(2);
        shown.SetActivePage(0);
    };
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) {
        fronts.push_back(dynamic_cast<mfc::SheetModel&>(window).ActivePage());
        sheet.options.refuse = fronts.size() == 1;
        sheet.choice.refuse = fronts.size() == 2;
        return std::vector<mfc::Answer>{{mfc::Answer::Kind::Press, IDOK}};
    });
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(fronts, (std::vector<int>{0, 1, 0}));
    EXPECT_EQ(sheet.log, "initC initO initN okC refuseO refuseC okC okO okN ")
        << "a page that accepted before may refuse";
}

TEST(CPropertySheet, LooksAreThoseOfHeaderTemplatesAndMessages) {
    TestModule module;
    LoggedSheet sheet;
    sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
    sheet.m_psh.dwFlags &= ~PSH_HASHELP;
    const HICON icon = LoadIcon(AfxGetResourceHandle(), MAKEINTRESOURCE(2007));
    sheet.onInit = [icon](LoggedSheet& shown) {
        shown.SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    };
    bool seen = false;
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) {
        const auto& model = dynamic_cast<mfc::SheetModel&>(window);
        EXPECT_FALSE(model.HasApply());
        EXPECT_FALSE(model.HasHelp());
        EXPECT_EQ(model.Icon(true), icon);
        EXPECT_EQ(model.Icon(false), nullptr);
        EXPECT_EQ(model.Text(), "颗粒分析成果图"_gbk);
        EXPECT_EQ(model.Tabs().size(), 3U);
        EXPECT_EQ(model.Tabs()[1].caption, "选项"_gbk) << "known before the page is made";
        EXPECT_EQ(model.Tabs()[1].rect.height, 140);
        EXPECT_EQ(model.Tabs()[1].page, nullptr);
        seen = true;
        return std::vector<mfc::Answer>();
    });
    sheet.DoModal();
    EXPECT_TRUE(seen);
}

TEST(CPropertySheet, APageMayBringItsOwnCopyOfATemplate) {
    TestModule module;
    const HINSTANCE resources = AfxGetResourceHandle();
    const HRSRC found = FindResource(resources, MAKEINTRESOURCE(TestModule::kOptions), RT_DIALOG);
    std::vector<std::byte> copy(SizeofResource(resources, found));
    std::memcpy(copy.data(), LockResource(LoadResource(resources, found)), copy.size());
    AfxSetResourceHandle(nullptr);

    module.Answer({"@check 2035 on", "@press ok"});
    CPropertyPage page;
    page.m_psp.dwFlags |= PSP_DLGINDIRECT;
    page.m_psp.pResource = reinterpret_cast<LPCDLGTEMPLATE>(copy.data());
    CPropertyPage byInit;
    byInit.InitModalIndirect(reinterpret_cast<LPCDLGTEMPLATE>(copy.data()));
    CPropertySheet sheet(100U);
    sheet.AddPage(&page);
    sheet.AddPage(&byInit);
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(module.windows.Error(), "");

    CPropertyPage without;
    sheet.AddPage(&without);
    EXPECT_EQ(sheet.DoModal(), -1) << "a page has no template";
    EXPECT_EQ(CPropertySheet("empty").DoModal(), -1);
}

TEST(CPropertySheet, ChangesAreToldToTheBackEnd) {
    TestModule module;
    LoggedSheet sheet;
    std::string told;
    module.windows.SetAnswerSource([&](mfc::FrameModel& window) {
        window.SetChangeListener([&](mfc::WindowModel& changed, mfc::Change change) {
            told +=
                std::to_string(changed.Id()) + ":" + std::to_string(static_cast<int>(change)) + " ";
        });
        sheet.SetActivePage(1);
        auto* box = static_cast<CButton*>(sheet.options.GetDlgItem(2035));
        box->SetCheck(BST_CHECKED);
        box->SetCheck(BST_CHECKED);
        box->EnableWindow(FALSE);
        sheet.EndDialog(5);
        return std::vector<mfc::Answer>();
    });
    EXPECT_EQ(sheet.DoModal(), 5);
    const auto entry = [](int id, mfc::Change change) {
        return std::to_string(id) + ":" + std::to_string(static_cast<int>(change)) + " ";
    };
    EXPECT_EQ(told, entry(0, mfc::Change::Focus) + entry(0, mfc::Change::ActivePage) +
                        entry(2035, mfc::Change::Check) + entry(2035, mfc::Change::Enabled) +
                        entry(0, mfc::Change::Ended));
}
