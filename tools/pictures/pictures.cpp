// Not a test: plays a user and leaves pictures of what is on the screen in the folder that the
// environment names (GRDX_PICTURES).

#include <QAbstractItemView>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

using picture::Point;

const QString kSheet = QStringLiteral("颗粒分析成果图");

void Keep(QWidget& window, const char* name) {
    QCoreApplication::sendPostedEvents();
    const QString folder = qEnvironmentVariable("GRDX_PICTURES");
    EXPECT_TRUE(window.grab().save(folder + QLatin1Char('/') + QLatin1String(name)));
}

void BringToFront(const QWidget& sheet, int tab) {
    sheet.findChild<QTabBar*>()->setCurrentIndex(tab);
}

class Pictures : public DeskFixture {
protected:
    Pictures() {
        window_.resize(1100, 760);
        QCoreApplication::processEvents();
    }
};

TEST_F(Pictures, PropertySheet) {
    person_.In(kSheet, [](QWidget& sheet) {
        ClickItem(*Control<QAbstractItemView>(sheet, 2008), "ZK2");
        for (const char* sample : {"1-2", "2-1", "2-2"}) {
            ClickItem(*Control<QAbstractItemView>(sheet, 2001), sample);
        }
        Keep(sheet, "sheet-samples.png");
        BringToFront(sheet, 1);
        Keep(sheet, "sheet-options.png");
        BringToFront(sheet, 2);
        const std::pair<int, const char*> names[] = {
            {2013, "滨江岩土试验室"}, {2009, "王工"}, {2010, "李工"}};
        for (const auto& [id, name] : names) {
            Control<QLineEdit>(sheet, id)->setFocus();
            Type(*Control<QLineEdit>(sheet, id), name);
        }
        for (const int id : {2026, 2027, 2028, 2029}) {
            QTest::mouseClick(Control<QCheckBox>(sheet, id), Qt::LeftButton);
        }
        Control<QDateEdit>(sheet, 2030)->setDate(QDate(2026, 5, 20));
        Keep(sheet, "sheet-annotation.png");
    });
    person_.Press(kSheet, IDOK);
    person_.In("查看颗粒分析成果图", [](QWidget& browser) {
        ClickItem(*Control<QAbstractItemView>(browser, 2015), "试样ZK2-2-2");
        Keep(browser, "browser.png");
    });
    person_.Press("查看颗粒分析成果图", IDOK);
    TypeLine("CGRDX");
    person_.Finish();
    Keep(window_, "desk-sheet.png");
}

TEST_F(Pictures, HotGrips) {
    DrawSheet("ZK2", {"2-2"});
    const AcDbObjectId curve = Curves().at(0);
    Click(PointOn(curve));
    // The chart fills the window.
    const auto& grips = View().Grips().Grips();
    const Point middle{grips[3].point.x, grips[3].point.y};
    for (int i = 0; i < 4; ++i) {
        desk::ZoomAbout(acDocManager->curDocument()->view(), middle, 1.25);
    }
    Click({grips[2].point.x, grips[2].point.y}, Qt::ShiftModifier);
    Click({grips[4].point.x, grips[4].point.y}, Qt::ShiftModifier);
    Press({grips[4].point.x, grips[4].point.y});
    Move(Point{grips[4].point.x, grips[4].point.y} + Point{3.0, 7.0});
    Keep(window_, "desk-grips.png");
    QTest::keyClick(&View(), Qt::Key_Escape);

    const Point grip{grips[3].point.x, grips[3].point.y};
    Press(grip);
    Release(grip + Point{0.0, -6.0});
    person_.In("GRDX", [](QWidget& box) {
        Keep(box, "box-store.png");
        QTest::keyClick(&box, Qt::Key_N, Qt::AltModifier);
    });
    TypeLine("NEW");
    person_.Finish();
}

}  // namespace
