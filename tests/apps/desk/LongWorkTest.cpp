// Work that takes longer than a person waits without a sign: shown, ended, and never in the way.

#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QThread>

#include "apps/desk/WorkProgress.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcRxEventReactor.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

/// A disk that takes its time.
class SlowDisk : public AcRxEventReactor {
public:
    SlowDisk() { acrxAddEventReactor(this); }
    ~SlowDisk() override { acrxRemoveEventReactor(this); }
    void saveComplete(AcDbDatabase* /*database*/, const char* /*path*/) override {
        constexpr unsigned long kMilliseconds = 180;
        QThread::msleep(kMilliseconds);
    }
};

class LongWork : public DeskFixture {
protected:
    /// Chooses every sample of the borehole in the sheet and presses OK.
    void ChooseAll(const QString& borehole) {
        person_.In(kSheetTitle, [=](QWidget& sheet) {
            ClickItem(*Control<QAbstractItemView>(sheet, 2008), borehole);
            auto& samples = *Control<QAbstractItemView>(sheet, 2001);
            for (const QString& sample : Items(samples)) {
                ClickItem(samples, sample);
            }
        });
        person_.Press(kSheetTitle, IDOK);
    }
};

TEST_F(LongWork, ShowsItselfAndCanBeEnded) {
    ChooseAll("ZK1");
    QString label;
    person_.Meet<QProgressDialog>("the progress is cancelled", [&](QProgressDialog& progress) {
        label = progress.labelText();
        QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton);
    });
    {
        const SlowDisk disk;
        TypeLine("CGRDX");
    }
    person_.Finish();
    const auto made = static_cast<int>(suite_.Sheets().size());
    EXPECT_GE(made, 2);
    EXPECT_LT(made, 4);
    EXPECT_EQ(label, QString("At work: %1 done.").arg(made));
    EXPECT_TRUE(Said().contains(QString("Cancelled; %1 done").arg(made))) << Said().toStdString();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

    // The next command is not bothered by it, and the sheets open, each shown whole.
    TypeLine("SDI 0");
    person_.In(kBrowserTitle, [made](QWidget& browser) {
        auto& sheets = *Control<QAbstractItemView>(browser, 2015);
        EXPECT_EQ(Items(sheets).size(), made);
        for (const QString& sheet : Items(sheets)) {
            ClickItem(sheets, sheet);
        }
    });
    person_.Press(kBrowserTitle, IDOK);
    RunLine("EGRDX");
    auto& tabs = *window_.findChild<QTabBar*>("documents");
    ASSERT_EQ(tabs.count(), made + 1);
    for (int tab = 1; tab <= made; ++tab) {
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
        const AcApView shown = acDocManager->curDocument()->view();
        TypeLine("ZOOM E");
        EXPECT_NEAR(shown.height, acDocManager->curDocument()->view().height, 1e-9) << tab;
        EXPECT_GT(shown.height, 250.0);
    }
}

TEST_F(LongWork, GivesWayToABoxAndIsBackWhenItGoesOn) {
    desk::WorkProgress work(&window_);
    const auto shown = [this] { return window_.findChild<QProgressDialog*>() != nullptr; };
    const auto goOn = [&] {
        for (int tries = 0; !shown() && tries < 200; ++tries) {
            EXPECT_FALSE(work.Step("Counting", 1000));
            QThread::msleep(5);
        }
        EXPECT_TRUE(shown());
    };
    goOn();
    person_.Meet<QMessageBox>("the box is answered", [&](QMessageBox& box) {
        EXPECT_FALSE(shown());
        EXPECT_EQ(box.parentWidget(), &window_);
        box.accept();
    });
    session_.Windows().ShowMessageBox({"?", "", MB_OK});
    goOn();
    QTest::qWait(10);
    EXPECT_FALSE(shown()) << "the work has gone back to its window";
    EXPECT_EQ(work.End(), std::nullopt);
}

TEST_F(LongWork, WindowsOfTheCommandTakeTheFront) {
    ChooseAll("ZK1");
    person_.In(kBrowserTitle, [this](QWidget& browser) {
        EXPECT_TRUE(window_.findChildren<QProgressDialog*>().isEmpty());
        EXPECT_EQ(Items(*Control<QAbstractItemView>(browser, 2015)).size(), 4);
    });
    person_.Press(kBrowserTitle, IDCANCEL);
    const SlowDisk disk;
    RunLine("CGRDX");
    EXPECT_FALSE(Said().contains("Cancelled")) << Said().toStdString();

    // No drawing is left; the next chart command starts from a new one.
    EXPECT_EQ(acDocManager->documentCount(), 0);
    person_.Press(kBrowserTitle, IDCANCEL);
    RunLine("EGRDX");
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

}  // namespace
