// A curve reshaped by its grips, with the mouse and the keyboard, and stored.

#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "apps/desk/ClickTarget.h"
#include "host/picture/shape_hits.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbObject.h"
#include "platform/db/AcDbStub.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

using picture::Point;

const std::string kRow = " FROM Z_c_KeFen WHERE ZKBH='ZK2' AND QYBH='2-2'";

class Editing : public DeskFixture {
protected:
    Editing() {
        DrawSheet("ZK2", {"2-2"});
        const std::vector<AcDbObjectId> curves = Curves();
        EXPECT_EQ(curves.size(), 1U);
        curve_ = curves.at(0);
        Click(PointOn(curve_));
        EXPECT_EQ(View().Selection(), std::vector{curve_});
    }
    Point GripAt(int index) const {
        const AcGePoint3d& point = View().Grips().Grips().at(static_cast<std::size_t>(index)).point;
        return {point.x, point.y};
    }

    /// Upper ends of what entities draw, in drawing order.
    std::vector<double> TopsOf(const std::vector<AcDbObjectId>& entities) const {
        std::vector<double> tops;
        for (const picture::Item& item : View().Picture().items()) {
            if (std::find(entities.begin(), entities.end(), item.entity) != entities.end()) {
                tops.push_back(item.box.top);
            }
        }
        return tops;
    }
    /// A place beside the sheet.
    Point Nowhere() const {
        const picture::Box sheet = View().Picture().box();
        return {sheet.left - 20.0, sheet.bottom + 20.0};
    }
    static QString PickOf(AcDbObjectId id) {
        return QStringLiteral("#%1").arg(static_cast<qulonglong>(id.handle()), 0, 16);
    }

    AcDbObjectId curve_;
};

TEST_F(Editing, AGripDraggedIsStoredWhenTheUserSaysSo) {
    const QStringList labels = TextsOf(curve_);
    const std::string before = Stored("SELECT KLD30" + kRow);
    ASSERT_EQ(labels.size(), 5);
    ASSERT_NE(before, "");
    ASSERT_GE(View().Grips().Grips().size(), 5U);

    const Point grip = GripAt(3);
    const Point there = grip + Point{0.0, -6.0};
    Press(grip);
    Move(there);
    EXPECT_TRUE(View().Grips().IsDragging());
    EXPECT_NEAR(View().Grips().Offset().y, -6.0, 0.5);
    EXPECT_EQ(TextsOf(curve_), labels) << "a drag changes nothing yet";
    const Point dropped = grip + View().Grips().Offset();
    Release(there);
    EXPECT_FALSE(View().Grips().IsDragging());
    EXPECT_EQ(GripAt(3), dropped) << "to the last digit";
    const QStringList reshaped = TextsOf(curve_);
    EXPECT_NE(reshaped[2], labels[2]) << "d30 is read off the new shape";
    EXPECT_TRUE(window_.windowTitle().endsWith(QLatin1Char('*')));
    EXPECT_EQ(Stored("SELECT KLD30" + kRow), before);

    // Leaving the drawing asks; the answer asks for the curve, which is clicked.
    person_.Answer("颗分图中有关数据已改变,是否入库?", IDYES);
    WhenAsked("请选择颗分试样曲线:", [this] { Click(PointOn(curve_)); });
    RunLine("NEW");
    EXPECT_TRUE(Said().contains("颗分数据存储成功!")) << Said().toStdString();
    const std::string after = Stored("SELECT KLD30" + kRow);
    EXPECT_NE(after, before);
    EXPECT_EQ(QStringLiteral("=") + QString::number(QString::fromStdString(after).toDouble()),
              reshaped[2]);
    EXPECT_TRUE(Curves().empty()) << "the new drawing is shown";
}

TEST_F(Editing, KeysTakeStepsBackAndTheMenuNamesThem) {
    const auto menu = [this] {
        return QStringList{window_.UndoAction()->text(), window_.RedoAction()->text()};
    };
    auto* const line = window_.findChild<QLineEdit*>(QStringLiteral("command"));
    EXPECT_FALSE(window_.UndoAction()->isEnabled());
    const QStringList labels = TextsOf(curve_);
    const Point grip = GripAt(3);
    Press(grip);
    Move(grip + Point{0.0, -6.0});
    Release(grip + Point{0.0, -6.0});
    const QStringList reshaped = TextsOf(curve_);
    EXPECT_EQ(menu(), (QStringList{"&Undo grip", "&Redo"}));

    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_)) << "or no shortcut is heard";
    line->setFocus();
    QTest::keyClicks(line, QStringLiteral("li"));
    QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextsOf(curve_), reshaped) << "what is being typed comes first";
    line->clear();
    QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextsOf(curve_), labels);
    EXPECT_EQ(GripAt(3), grip) << "and the grips follow";
    EXPECT_FALSE(window_.windowTitle().endsWith(QLatin1Char('*')));
    EXPECT_EQ(menu(), (QStringList{"&Undo", "&Redo grip"}));
    EXPECT_FALSE(window_.UndoAction()->isEnabled());
    QTest::keyClick(&View(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(TextsOf(curve_), reshaped);
}

TEST_F(Editing, HotGripsMoveTogetherAndEscGivesUp) {
    const Point first = GripAt(2);
    const Point second = GripAt(4);
    const Point other = GripAt(3);
    Click(first, Qt::ShiftModifier);
    Click(second, Qt::ShiftModifier);
    Click(first);
    Move(first + Point{2.0, 3.0});
    EXPECT_TRUE(View().Grips().IsDragging()) << "after a mere click the next one drops";
    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_FALSE(View().Grips().IsDragging());
    EXPECT_FALSE(View().Grips().AnyHot());
    EXPECT_EQ(GripAt(2), first);
    EXPECT_FALSE(acDocManager->curDocument()->database()->isModified());

    Click(first, Qt::ShiftModifier);
    Click(second, Qt::ShiftModifier);
    Click(first);
    TypeLine("@2,3");
    EXPECT_EQ(GripAt(2), (first + Point{2.0, 3.0}));
    EXPECT_EQ(GripAt(4), (second + Point{2.0, 3.0}));
    EXPECT_EQ(GripAt(3), other);

    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_TRUE(View().Selection().empty());
}

TEST_F(Editing, WhatLightsUpIsTakenTheCurveBeforeItsGridThenWhatLiesBelow) {
    QTest::keyClick(&View(), Qt::Key_Escape);
    const double reach = View().ToPlane({6.0, 0.0}).x - View().ToPlane({0.0, 0.0}).x;
    const auto nearest = [&](Point at) {
        return picture::EntitiesAt(View().Picture(), at, 0.7 * reach).front().entity;
    };
    Point at = PointOn(curve_);
    while (nearest(at) == curve_) {
        at.y += 0.05 * reach;
    }
    Move(at);
    EXPECT_EQ(View().Offered(), curve_);
    Click(at);
    EXPECT_EQ(View().Selection(), std::vector{curve_});
    const AcDbObjectId below = View().Offered();
    EXPECT_EQ(below, nearest(at));
    Click(at);
    EXPECT_EQ(View().Selection(), std::vector{below});
    Click(at, Qt::ShiftModifier);
    EXPECT_TRUE(View().Selection().empty());
    Move(Nowhere());
    EXPECT_TRUE(View().Offered().isNull());
}

TEST_F(Editing, SgrdxTakesTheSelectedCurveAndAsksAgainAfterAClickOnNothing) {
    window_.RunCommand("GRIP " + PickOf(curve_) + " 3 0,-2");
    ASSERT_EQ(View().Selection(), std::vector{curve_});
    TypeLine("SGRDX");
    EXPECT_TRUE(Said().contains("颗分数据存储成功!")) << Said().toStdString();
    EXPECT_FALSE(Said().contains("请选择颗分试样曲线:")) << "it was selected";

    for (const Point at : {Nowhere(), PointOn(curve_)}) {
        WhenAsked("请选择颗分试样曲线:", [this, at] { Click(at); });
    }
    RunLine("SGRDX");
    EXPECT_TRUE(Said().contains("该试样没有改动")) << Said().toStdString();
    EXPECT_FALSE(Said().contains("什么也没有选中")) << Said().toStdString();
}

TEST_F(Editing, WindowsSelectWithinAndAcross) {
    QTest::keyClick(&View(), Qt::Key_Escape);
    const picture::Box sheet = View().Picture().box();
    for (const Point corner : {Point{sheet.left, sheet.bottom}, Point{sheet.right, sheet.top}}) {
        EXPECT_TRUE(View().rect().contains(View().ToPixel(corner).toPoint())) << "all is seen";
    }
    const Point outside{sheet.left - 5.0, sheet.bottom - 5.0};
    const Point inside{sheet.right + 5.0, (sheet.bottom + sheet.top) / 2.0};
    Press(outside);
    Move(inside);
    Release(inside);
    const std::size_t within = View().Selection().size();
    QTest::keyClick(&View(), Qt::Key_Escape);
    Press(inside);
    Move(outside);
    Release(outside);
    const std::size_t across = View().Selection().size();
    EXPECT_GT(within, 10U);
    EXPECT_GT(across, within) << "the frame is touched and not contained";
    EXPECT_LT(across, View().Picture().items().size());

    const std::vector<AcDbObjectId> moved = View().Selection();
    const std::vector<double> tops = TopsOf(moved);
    WhenAsked({}, [this] { TypeLine("0,0"); });
    WhenAsked({}, [this] { TypeLine("0,100"); });
    window_.RunCommand("MOVE");
    person_.Finish();
    const std::vector<double> now = TopsOf(moved);
    ASSERT_EQ(now.size(), across);
    for (std::size_t i = 0; i < across; ++i) {
        EXPECT_NEAR(now[i], tops[i] + 100.0, 1e-6) << "asked once, all are moved";
    }
}

TEST_F(Editing, ACommandOnTheSelectionEndsWithItsDrawing) {
    WhenAsked({}, [this] { window_.RunCommand("CLOSE"); });
    View().Select({curve_, View().Picture().items().front().entity});
    window_.RunCommand("MOVE");
    person_.Finish();
    EXPECT_EQ(acDocManager->documentCount(), 0);
    EXPECT_TRUE(View().Selection().empty());
}

TEST(ClickTarget, ClicksAtAnotherPlaceStartAnew) {
    AcDbStub stubs[2];
    picture::DisplayList list;
    for (const int i : {0, 1}) {
        list.beginItem(AcDbObjectId(&stubs[i]));
        const Point ends[] = {{0, 0.1 * i}, {10, 0.1 * i}};
        list.addPolyline(ends, 7, 0.0F);
        list.endItem();
    }
    desk::ClickTarget target;
    target.Look(list, {5, 0}, 1.0);
    EXPECT_EQ(target.Take(), AcDbObjectId(&stubs[0]));
    target.Look(list, {5.4, 0}, 1.0);
    EXPECT_EQ(target.Offered(), AcDbObjectId(&stubs[1])) << "a hand is unsteady";
    target.Look(list, {7, 0}, 1.0);
    EXPECT_EQ(target.Offered(), AcDbObjectId(&stubs[0]));
}

}  // namespace
