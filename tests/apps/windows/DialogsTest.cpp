// The plug-in's own dialogs as windows: what a user sees and can do in them.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <clocale>
#include <fstream>

#include "apps/windows/DialogUnits.h"
#include "apps/windows/QtWindowSystem.h"
#include "apps/windows/qt_text.h"
#include "host/Host.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/CTime.h"
#include "tests/apps/person/Person.h"
#include "tests/system/Program.h"

namespace {

constexpr int kBoreholes = 2008;
constexpr int kSamples = 2001;

/// A project with its plug-in, and a user in front of it.
class Dialogs : public testing::Test {
protected:
    Dialogs() : suite_(scratch_.Path() / "suite", 0) {
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += text; });
        host_ = std::make_unique<host::Host>();
        std::string error;
        EXPECT_TRUE(host_->OpenSuite(suite_.Folder(), error)) << error;
        EXPECT_TRUE(host_->LoadModule(host::Host::FindModule("grdx.arx", error), error)) << error;
        host_->StartDocument();
    }
    ~Dialogs() override {
        host_.reset();
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
    }

    void Run(const std::string& command) {
        host::CommandInput input = host::CommandInput::OfText(command);
        host_->Interpreter().Run(input);
        person_.Finish();
    }
    std::string Settings() const { return FileBytes(suite_.Folder() / "settings.ini"); }

    ScratchFolder scratch_;
    SampleSuite suite_;
    windows::QtWindowSystem windows_;
    std::string printed_;
    std::unique_ptr<host::Host> host_;
    Person person_;
};

/// The captions of a sheet's tabs.
QStringList Tabs(const QWidget& sheet) {
    const auto* bar = sheet.findChild<QTabBar*>();
    QStringList captions;
    for (int i = 0; i < bar->count(); ++i) {
        captions << bar->tabText(i);
    }
    return captions;
}

void BringToFront(const QWidget& sheet, int tab) {
    auto* const bar = sheet.findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
    QCoreApplication::sendPostedEvents();
}

int FocusedControl() {
    const QWidget* const focused = QApplication::focusWidget();
    return focused == nullptr ? 0 : focused->objectName().section(QLatin1Char(' '), 1).toInt();
}

TEST_F(Dialogs, SheetLooksAsItsTemplatesSay) {
    person_.In(kSheetTitle, [](QWidget& sheet) {
        EXPECT_FALSE(sheet.windowIcon().pixmap(32, 32).isNull());
        EXPECT_EQ(Tabs(sheet), (QStringList{"选择取样", "选项", "标注"}));
        EXPECT_EQ(sheet.findChild<QTabBar*>()->currentIndex(), 0);
        EXPECT_EQ(FocusedControl(), kBoreholes);
        auto* const boreholes = Control<QAbstractItemView>(sheet, kBoreholes);
        auto* const samples = Control<QAbstractItemView>(sheet, kSamples);
        ASSERT_TRUE(boreholes != nullptr && samples != nullptr);
        const windows::DialogUnits units(sheet.font());
        EXPECT_EQ(boreholes->geometry(), units.ToPixels({8, 9, 73, 107}));
        EXPECT_EQ(samples->geometry(), units.ToPixels({91, 9, 115, 107}));
        auto* const remove = Control<QPushButton>(sheet, 2037);
        ASSERT_NE(remove, nullptr);
        EXPECT_EQ(remove->text(), "删除*号(&D)");
        EXPECT_EQ(remove->shortcut(), QKeySequence(Qt::ALT | Qt::Key_D));
        EXPECT_TRUE(Control<QPushButton>(sheet, IDOK)->isDefault());

        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(FocusedControl(), kSamples);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(FocusedControl(), 2037);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(FocusedControl(), IDOK);
        for (const QLabel* label : sheet.findChildren<QLabel*>()) {
            EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
        }

        BringToFront(sheet, 1);
        EXPECT_FALSE(Control<QCheckBox>(sheet, 2037)->isEnabled()) << "samples are not recomputed";
        EXPECT_EQ(Control<QCheckBox>(sheet, 2037)->layoutDirection(), Qt::RightToLeft);
        BringToFront(sheet, 2);
        EXPECT_EQ(Control<QDateEdit>(sheet, 2030)->date(), QDate::currentDate());
    });
    person_.In(kSheetTitle, [](QWidget& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); });
    Run("CGRDX");
    EXPECT_TRUE(suite_.Sheets().empty());
    EXPECT_EQ(Settings().find("bWCDW"), std::string::npos) << "a cancelled sheet stores nothing";
}

TEST_F(Dialogs, ARefusedOkKeepsTheSheetOpenWithTheRightPageInFront) {
    person_.In(kSheetTitle, [](QWidget& sheet) { BringToFront(sheet, 2); });
    person_.Press(kSheetTitle, IDOK);
    person_.In("GRDX", [](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text(), "请选择试样编号");
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance("GRDX MMMMMMMMMM"))
            << "the title's buttons would cut it off";
        QTest::keyClick(&box, Qt::Key_Return);
    });
    person_.In(kSheetTitle, [](QWidget& sheet) {
        EXPECT_EQ(sheet.findChild<QTabBar*>()->currentIndex(), 0);
        EXPECT_EQ(FocusedControl(), kBoreholes);
        sheet.close();
    });
    Run("CGRDX");
    EXPECT_TRUE(suite_.Sheets().empty());
}

TEST_F(Dialogs, ChoicesReachSheetsSettingsAndMarks) {
    person_.In(kSheetTitle, [](QWidget& sheet) {
        auto& boreholes = *Control<QAbstractItemView>(sheet, kBoreholes);
        auto& samples = *Control<QAbstractItemView>(sheet, kSamples);
        ClickItem(boreholes, "ZK2");
        EXPECT_EQ(Items(samples), (QStringList{"1-1", "1-2", "2-1", "2-2", "2-10", "3-1", "3-2"}));
        ClickItem(samples, "2-1");
        ClickItem(samples, "2-2");
        ClickItem(samples, "2-10");
        ClickItem(samples, "2-1");
        QTest::keyClick(&samples, Qt::Key_Home);
        QTest::keyClick(&samples, Qt::Key_Down);
        EXPECT_EQ(Items(samples)[1], "1-2") << "the arrows select nothing";
        QTest::keyClick(&samples, Qt::Key_Space);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(Items(samples),
                  (QStringList{"1-1", "(1-2)", "2-1", "(2-2)", "(2-10)", "3-1", "3-2"}));

        BringToFront(sheet, 2);
        auto& tester = *Control<QLineEdit>(sheet, 2009);
        tester.setFocus();
        Type(tester, "王工\u20ac");
        EXPECT_EQ(tester.text(), "王工") << "what GBK cannot write does not get in";
        QTest::mouseClick(Control<QCheckBox>(sheet, 2027), Qt::LeftButton);
        Control<QDateEdit>(sheet, 2030)->setDate(QDate(2026, 5, 20));
    });
    person_.Press(kSheetTitle, IDOK);
    person_.In(kBrowserTitle, [](QWidget& browser) {
        EXPECT_EQ(FocusedControl(), 2014);
        auto& sheets = *Control<QAbstractItemView>(browser, 2015);
        EXPECT_EQ(Items(*Control<QAbstractItemView>(browser, 2014)), QStringList{"(ZK2)"});
        EXPECT_EQ(Items(sheets), (QStringList{"试样ZK2-1-2和ZK2-2-2", "试样ZK2-2-10"}));
        ClickItem(sheets, "试样ZK2-2-10");
    });
    person_.Press(kBrowserTitle, IDOK);
    Run("CGRDX");
    ASSERT_EQ(suite_.Sheets().size(), 2U);
    EXPECT_NE(std::string(acDocManager->curDocument()->fileName()).find("KFZK2-2-10.dwg"),
              std::string::npos);
    EXPECT_NE(Settings().find("sSYZ=" + windows::ToGbk("王工")), std::string::npos) << Settings();
    EXPECT_NE(Settings().find("bSYZ=1"), std::string::npos);

    person_.In(kSheetTitle, [](QWidget& sheet) {
        auto& samples = *Control<QAbstractItemView>(sheet, kSamples);
        ClickItem(*Control<QAbstractItemView>(sheet, kBoreholes), "ZK2");
        EXPECT_EQ(Items(samples),
                  (QStringList{"1-1", "*1-2", "2-1", "*2-2", "*2-10", "3-1", "3-2"}));
        ClickItem(samples, "*2-2");
        QTest::mouseClick(Control<QPushButton>(sheet, 2037), Qt::LeftButton);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(Items(samples),
                  (QStringList{"1-1", "*1-2", "2-1", "(2-2)", "*2-10", "3-1", "3-2"}));
        BringToFront(sheet, 2);
        EXPECT_EQ(Control<QLineEdit>(sheet, 2009)->text(), "王工");
        EXPECT_TRUE(Control<QCheckBox>(sheet, 2027)->isChecked());
    });
    person_.Press(kSheetTitle, IDCANCEL);
    Run("CGRDX");
}

/// The rows that are highlighted, and that the list itself says are selected.
std::string Chosen(QAbstractItemView& list) {
    QCoreApplication::sendPostedEvents();
    std::string rows;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        rows += list.selectionModel()->isRowSelected(row, {}) ? 'x' : '.';
    }
    return rows;
}

TEST_F(Dialogs, RangesAllAndDoubleClicksChooseWhatIsHighlighted) {
    person_.In(kSheetTitle, [](QWidget& sheet) {
        auto& boreholes = *Control<QAbstractItemView>(sheet, kBoreholes);
        auto& samples = *Control<QAbstractItemView>(sheet, kSamples);
        ClickItem(boreholes, "ZK2");
        const auto click = [&](int row, Qt::KeyboardModifiers keys = {}) {
            QTest::mouseClick(samples.viewport(), Qt::LeftButton, keys,
                              samples.visualRect(samples.model()->index(row, 0)).center());
            return Chosen(samples);
        };
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers keys) {
            QTest::keyClick(&samples, key, keys);
            return Chosen(samples);
        };
        EXPECT_EQ(click(1), ".x.....");
        QTest::mouseClick(samples.viewport(), Qt::RightButton, {},
                          samples.visualRect(samples.model()->index(2, 0)).center());
        EXPECT_EQ(Chosen(samples), ".x.....");
        EXPECT_EQ(click(4, Qt::ShiftModifier), ".xxxx..");
        EXPECT_EQ(press(Qt::Key_Up, Qt::ShiftModifier), ".xxx...") << "drawn again from the click";
        EXPECT_EQ(click(0, Qt::ShiftModifier), "xx.....");
        QTest::mouseDClick(samples.viewport(), Qt::LeftButton, {},
                           samples.visualRect(samples.model()->index(6, 0)).center());
        EXPECT_EQ(Chosen(samples), "xx....x");
        EXPECT_EQ(press(Qt::Key_A, Qt::ControlModifier), "xxxxxxx");
        EXPECT_EQ(click(3), "xxx.xxx");
        EXPECT_EQ(click(5, Qt::ShiftModifier), "xxx...x") << "as the click left its item";
        EXPECT_EQ(press(Qt::Key_Right, {}), "xxx...x");
        EXPECT_EQ(press(Qt::Key_Space, {}), "xxx....");

        const std::string before = Chosen(boreholes);
        QTest::keyClick(&boreholes, Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(Chosen(boreholes), before) << "one at a time";
        EXPECT_EQ(press(Qt::Key_A, Qt::ControlModifier), "xxxxxxx");
    });
    person_.Press(kSheetTitle, IDOK);
    person_.Press(kBrowserTitle, IDCANCEL);
    Run("CGRDX");
    EXPECT_EQ(suite_.Sheets().size(), 4U) << "all seven, two on a sheet";
}

TEST_F(Dialogs, LayerSheetAndBrowser) {
    person_.In(kSheetTitle, [](QWidget& sheet) {
        EXPECT_EQ(FocusedControl(), kSamples) << "the list of layers";
        auto& layers = *Control<QAbstractItemView>(sheet, kSamples);
        EXPECT_FALSE(Items(layers).join(QString()).contains(QLatin1Char('(')))
            << "the current item is not a selected one";
        ClickItem(layers, "1");
        ClickItem(layers, "2-1");
        BringToFront(sheet, 1);
        EXPECT_TRUE(Control<QCheckBox>(sheet, 2037)->isEnabled());
    });
    person_.Press(kSheetTitle, IDOK);
    Run("CLGRDX");
    const std::size_t made = suite_.Sheets().size();
    ASSERT_GE(made, 1U);

    person_.In(kBrowserTitle, [&](QWidget& browser) {
        auto& sheets = *Control<QAbstractItemView>(browser, 2015);
        EXPECT_EQ(Items(sheets).size(), static_cast<qsizetype>(made));
        QTest::keyClick(&sheets, Qt::Key_Return);
    });
    person_.Answer("请选择需要编辑的试样号。", IDOK);
    person_.Press(kBrowserTitle, IDCANCEL);
    Run("ELGRDX");
}

TEST_F(Dialogs, ABoxOfYesAndNoHasToBeAnswered) {
    // A plug-in speaks Chinese wherever it runs, the program the user's language.
    for (const auto& [ofProgram, yes] : {std::pair(false, "是(&Y)"), std::pair(true, "&Yes")}) {
        person_.In("颗分", [yes = QString(yes)](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            EXPECT_EQ(Control<QPushButton>(box, IDYES)->text(), yes);
            EXPECT_EQ(box.defaultButton(), Control<QPushButton>(box, IDYES));
            QTest::keyClick(&box, Qt::Key_Escape);
            box.close();
            EXPECT_TRUE(box.isVisible()) << "neither Esc nor the close button answers";
            QTest::keyClick(&box, Qt::Key_N, Qt::AltModifier);
        });
        EXPECT_EQ(windows_.ShowMessageBox({windows::ToGbk("是否入库?"), windows::ToGbk("颗分"),
                                           MB_YESNO | MB_ICONINFORMATION, nullptr, ofProgram}),
                  IDNO);
    }
}

TEST(UsersLocale, IsNotInTextsThatOthersRead) {
    if (qgetenv("LC_ALL") == "de_DE.UTF-8") {
        ASSERT_STREQ(localeconv()->decimal_point, ",");
    }
    CString text;
    text.Format("%.3f", 0.5);
    EXPECT_STREQ(text, "0.500");
    EXPECT_STREQ(CTime(2026, 3, 7, 9, 0, 0).Format("%p %b"), "AM Mar");
}

}  // namespace
