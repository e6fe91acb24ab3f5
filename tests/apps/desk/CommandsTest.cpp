// Commands typed, repeated, cancelled and chosen; drawings opened, shown as tabs and closed.

#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <fstream>

#include <sqlite3.h>

#include "apps/desk/ViewTransform.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

class Commands : public DeskFixture {
protected:
    QTabBar& Tabs() const { return *window_.findChild<QTabBar*>("documents"); }
};

TEST_F(Commands, AWaitingCommandTakesLinesClicksAndEsc) {
    const QString idle = Prompt();
    WhenAsked("New value for SDI (0 or 1): ", [this] { TypeLine("0"); });
    RunLine("sdi");
    EXPECT_EQ(Prompt(), idle);
    EXPECT_TRUE(Said().contains("New value for SDI (0 or 1):  0")) << Said().toStdString();

    WhenAsked({}, [this] { QTest::keyClick(&View(), Qt::Key_Escape); });
    QTest::keyClick(&View(), Qt::Key_Space);
    person_.Finish();
    EXPECT_TRUE(Said().contains("SDI: cancelled")) << Said().toStdString();

    TypeLine("nonsense");
    EXPECT_TRUE(Said().contains("Unknown command \"nonsense\"."));
}

TEST_F(Commands, KeysThatSayNothingAreLeftAloneWhereverTheyArePressed) {
    auto& line = *window_.findChild<QLineEdit*>("command");
    auto& history = *window_.findChild<QWidget*>("history");
    history.setFocus();
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_F5}) {
        for (QWidget* const place : {&history, static_cast<QWidget*>(&View())}) {
            QTest::keyClick(place, key);
            EXPECT_EQ(window_.focusWidget(), &history) << "Ctrl+C would copy from elsewhere";
        }
        QTest::keyClick(&line, key);
    }
    QTest::keyClick(&View(), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyClicks(&View(), "Sd");
    EXPECT_EQ(line.text(), "Sd");
    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_EQ(line.text(), "");
}

TEST_F(Commands, AnEmptyPickSelectsNothing) {
    WhenAsked({}, [this] { QTest::keyClick(&View(), Qt::Key_Return); });
    RunLine("SGRDX");
    EXPECT_TRUE(Said().contains("什么也没有选中.")) << Said().toStdString();
}

TEST_F(Commands, AMenuTakesTheWaitingCommandsPlace) {
    const int before = acDocManager->documentCount();
    WhenAsked({}, [this] { window_.RunCommand("NEW"); });
    TypeLine("SDI 0");
    RunLine("MOVE");
    EXPECT_EQ(acDocManager->documentCount(), before + 1);
    EXPECT_EQ(Tabs().count(), before + 1);
}

TEST_F(Commands, DrawingsAreTabsAndChangedOnesAskBeforeTheyGo) {
    EXPECT_EQ(suite_.Draw("ZK2").status, 0);
    TypeLine("SDI 0");
    const QStringList paths = SheetPaths();
    ASSERT_GE(paths.size(), 3);
    window_.OpenDrawings(paths);
    EXPECT_EQ(Tabs().count(), paths.size() + 1);
    EXPECT_EQ(Tabs().tabText(Tabs().currentIndex()), paths.back().section('/', -1));

    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(1).center());
    EXPECT_EQ(Tabs().tabText(Tabs().currentIndex()), paths[0].section('/', -1));
    ASSERT_FALSE(Curves().empty());
    View().Select({Curves()[0]});
    QTest::keyClick(&View(), Qt::Key_Delete);
    EXPECT_EQ(Tabs().tabText(1), paths[0].section('/', -1) + "*");

    person_.Answer("Save the changes to", IDCANCEL);
    window_.close();
    person_.Finish();
    EXPECT_TRUE(window_.isVisible());
    EXPECT_FALSE(session_.Program().IsQuitting());

    person_.Answer("Save the changes to", IDNO);
    RunLine("CLOSE");
    EXPECT_EQ(Tabs().count(), paths.size());

    person_.Answer("已经打开了多个文档", IDYES);
    person_.In(kSheetTitle, [this](QWidget&) {
        EXPECT_EQ(Tabs().count(), acDocManager->documentCount()) << "the command has closed some";
    });
    person_.Press(kSheetTitle, IDCANCEL);
    RunLine("CGRDX");
}

TEST_F(Commands, WhatCannotBeOpenedIsToldInABox) {
    const std::string file = scratch_.Path() / "letter.dwg";
    std::ofstream(file) << "no drawing";
    QElapsedTimer asking;
    person_.Then("the reader takes his time", [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box != nullptr && !asking.isValid()) {
            asking.start();
        }
        return asking.isValid() && asking.elapsed() > 400;
    });
    person_.Answer("letter.dwg", IDOK);
    window_.OpenDrawings({QString::fromStdString(file)});
    person_.Answer("holds no suite.ini", IDOK);
    EXPECT_FALSE(window_.OpenSuite(QString::fromStdString(scratch_.Path())));
    person_.Finish();
    EXPECT_EQ(session_.SuiteFolder(), suite_.Folder()) << "the one before stays";
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(Commands, WhatTheDatabaseRefusesIsToldInABox) {
    const std::string locked = suite_.Database();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(locked.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    person_.In(kSheetTitle,
               [](QWidget& sheet) { ClickItem(*Control<QAbstractItemView>(sheet, 2001), "1"); });
    person_.Press(kSheetTitle, IDOK);
    person_.Meet<QProgressDialog>("the user does not want to wait", [](QProgressDialog& progress) {
        EXPECT_TRUE(progress.labelText().contains("locked")) << progress.labelText().toStdString();
        progress.cancel();
    });
    person_.Answer(
        "QYBH=1: KLD30=0.003, KLD50=0.008, KLD60=0.013, KLD85=0.045, KLD90=0.055, "
        "KLD95=0.067: database is locked",
        IDOK);
    RunLine("CGRDX");
    EXPECT_TRUE(window_.findChildren<QProgressDialog*>().isEmpty());

    // Whoever waits is not sent away: the window stays until the lock goes.
    QTimer unlocking;
    unlocking.setSingleShot(true);
    unlocking.callOnTimeout(
        [other] { sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr); });
    unlocking.start(2500);
    DrawSheet("ZK1", {"*1"});
    sqlite3_close(other);
    EXPECT_NE(Stored("SELECT KLD60 FROM Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='1'"), "");
}

TEST_F(Commands, ASuiteWithoutItsDatabaseIsToldInABox) {
    std::filesystem::remove(suite_.Database());
    person_.Answer("不能打开颗分试验项目表,请检查数据!", IDOK);
    person_.Press(kSheetTitle, IDCANCEL);
    person_.Answer("project.db: unable to open database file", IDOK);
    RunLine("CGRDX");
    EXPECT_TRUE(suite_.Sheets().empty());
}

TEST_F(Commands, ADatabaseRestoredMeanwhileIsToldAndTakenByOpeningTheFolderAgain) {
    DrawSheet("ZK1", {"1"});
    const std::string backup = scratch_.Path() / "backup.db";
    suite_.Ask("VACUUM INTO '" + backup + "'");
    DrawSheet("ZK1", {"2"});
    std::filesystem::rename(backup, suite_.Database());
    person_.Answer("不能打开颗分试验项目表,请检查数据!", IDOK);
    person_.Press(kSheetTitle, IDCANCEL);
    person_.Answer("replaced or deleted while it was open", IDOK);
    RunLine("CGRDX");
    EXPECT_TRUE(window_.OpenSuite(QString::fromStdString(suite_.Folder())));
    EXPECT_EQ(Stored("SELECT count(*) FROM Z_c_KeFen WHERE KLD60 IS NOT NULL"), "1");
    DrawSheet("ZK1", {"3"});
    EXPECT_EQ(Stored("SELECT count(*) FROM Z_c_KeFen WHERE KLD60 IS NOT NULL"), "2");
    EXPECT_EQ(Stored("PRAGMA integrity_check"), "ok");
}

TEST_F(Commands, AnUncheckedProjectIsMarkedInABox) {
    EXPECT_EQ(
        RunProgram({GRDX_PROGRAM, "project", "--checked", "no", "-s", suite_.Folder()}).status, 0);
    person_.Answer("请到主模块执行[数检]命令后再试此功能！", IDOK);
    person_.Then("the program asks in its own language", [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->text().contains("Project profile (GCSJ): not checked")) {
            return false;
        }
        EXPECT_EQ(Control<QPushButton>(*box, IDYES)->text(), "&Yes");
        return true;
    });
    person_.Answer("Mark the project as checked?", IDYES);
    window_.RunCommand("CGRDX");
    person_.Finish();
    EXPECT_EQ(Stored("SELECT GCSJ FROM x_GongCheng"), "0");
    DrawSheet("ZK2", {"2-2"});
}

TEST_F(Commands, AnotherSuiteFolderStartsAnew) {
    const SampleSuite other(scratch_.Path() / "other", 2);
    EXPECT_TRUE(window_.OpenSuite(QString::fromStdString(other.Folder())));
    EXPECT_EQ(session_.SuiteFolder(), other.Folder());
    DrawSheet("ZK2", {"2-2"});
    EXPECT_EQ(other.Sheets().size(), 1U);
    EXPECT_TRUE(suite_.Sheets().empty());
}

TEST_F(Commands, WhatASuiteFolderUsesOutsideOfItselfIsAskedFor) {
    qputenv("XDG_CONFIG_HOME", (scratch_.Path() / "configuration").c_str());
    const SampleSuite other(scratch_.Path() / "other", 2);
    const QString folder = QString::fromStdString(other.Folder());
    const QString marks = QString::fromStdString(scratch_.Path() / "marks.ini");
    std::filesystem::remove(other.Folder() / "marks.ini");
    std::filesystem::create_symlink(marks.toStdString(), other.Folder() / "marks.ini");
    person_.Answer("MarkProfile: " + marks, IDNO);
    EXPECT_FALSE(window_.OpenSuite(folder));
    EXPECT_EQ(session_.SuiteFolder(), suite_.Folder());
    person_.Answer("MarkProfile: " + marks, IDYES);
    EXPECT_TRUE(window_.OpenSuite(folder));
    person_.Finish();
    EXPECT_TRUE(window_.OpenSuite(folder)) << "asked once";

    // What is changed while the folder is open.
    std::filesystem::create_symlink(scratch_.Path(), other.Folder() / "output");
    TypeLine("EGRDX");
    EXPECT_TRUE(Said().contains("output: " + QString::fromStdString(scratch_.Path())));
    std::filesystem::remove(other.Folder() / "output");
    std::ofstream(other.Folder() / "project.ini") << "[Project]\nGCSY=1\nGCSJ=0\nGCBH=..\\x\n";
    TypeLine("EGRDX");
    EXPECT_TRUE(Said().contains("the project number \"..\\x\""));
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(Commands, ANewcomersChartsWithoutASuiteLeadToOne) {
    std::string error;
    ASSERT_TRUE(session_.Start("", error)) << error;
    person_.Answer("请首先启动【数据管理】并打开工程", IDOK);
    window_.RunCommand("CGRDX");
    person_.Finish();
    EXPECT_TRUE(window_.OpenSuite(QString::fromStdString(suite_.Folder())));

    // Single-document mode, where there is always a drawing, and a command that waits.
    TypeLine("SDI 1");
    TypeLine("SAVEAS " + QString::fromStdString(scratch_.Path() / "kept.dwg"));
    WhenAsked({},
              [this] { EXPECT_TRUE(window_.OpenSuite(QString::fromStdString(suite_.Folder()))); });
    TypeLine("MOVE");
    person_.Then("it is open", [this] {
        return !session_.Feed().IsRunning() && acDocManager->curDocument()->isUntitled();
    });
    person_.Finish();
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(Commands, TheWindowAndTheSheetAreAsTheyWereLeft) {
    const QSize size(900, 500);
    {
        desk::MainWindow before(session_);
        before.resize(size);
        before.SetLightBackground(true);
    }
    desk::MainWindow window(session_);
    EXPECT_EQ(window.size(), size);
    EXPECT_TRUE(window.HasLightBackground());
    for (const int front : {0, 2}) {
        person_.In(kSheetTitle, [front](QWidget& sheet) {
            auto* const tabs = sheet.findChild<QTabBar*>();
            EXPECT_EQ(tabs->currentIndex(), front);
            tabs->setCurrentIndex(2);
            QTest::keyClick(&sheet, Qt::Key_Escape);
        });
        window.RunCommand("CGRDX");
        person_.Finish();
    }
}

TEST_F(Commands, TheWheelZoomsAtTheCursorAndTheMiddleButtonPans) {
    DrawSheet("ZK2", {"2-2"});
    const QPoint at(300, 200);
    const picture::Point under = View().ToPlane(at);
    const double height = acDocManager->curDocument()->view().height;
    QWheelEvent turn(at, View().mapToGlobal(at), {}, {0, 240}, Qt::NoButton, {}, Qt::NoScrollPhase,
                     false);
    QCoreApplication::sendEvent(&View(), &turn);
    EXPECT_LT(acDocManager->curDocument()->view().height, height * 0.7);
    EXPECT_NEAR(View().ToPlane(at).x, under.x, 1e-9);
    EXPECT_NEAR(View().ToPlane(at).y, under.y, 1e-9);

    QTest::mousePress(&View(), Qt::MiddleButton, {}, at);
    QTest::mouseMove(&View(), at + QPoint(50, -30));
    QTest::mouseRelease(&View(), Qt::MiddleButton, {}, at + QPoint(50, -30));
    EXPECT_NEAR(View().ToPlane(at + QPoint(50, -30)).x, under.x, 1e-9);

    QTest::mouseDClick(&View(), Qt::MiddleButton, {}, at);
    EXPECT_NEAR(acDocManager->curDocument()->view().height, height, 1e-9);

    // However close one looks, a curve has no corners, and from afar none that nobody sees.
    const std::size_t points = View().Picture().pointCount();
    desk::ZoomAbout(acDocManager->curDocument()->view(), under, 1000.0);
    EXPECT_GT(View().Picture().pointCount(), points * 3 / 2);
    desk::ZoomAbout(acDocManager->curDocument()->view(), under, 1e-3);
    EXPECT_EQ(View().Picture().pointCount(), points);
}

}  // namespace
