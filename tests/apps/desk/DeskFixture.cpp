#include "tests/apps/desk/DeskFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <stdexcept>

#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/mfc/message_box.h"

using picture::Point;

desk::DeskSession& DeskFixture::Started(desk::DeskSession& session, const SampleSuite& suite) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(suite.Folder().parent_path()));
    std::string error;
    EXPECT_TRUE(session.Start(suite.Folder(), error)) << error;
    return session;
}

DeskFixture::DeskFixture()
    : suite_(scratch_.Path() / "suite", 0), window_(Started(session_, suite_)) {
    window_.resize(1200, 900);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
}

void DeskFixture::TypeLine(const QString& line) {
    Type(View(), line);
    QTest::keyClick(&View(), Qt::Key_Return);
}

void DeskFixture::RunLine(const QString& line) {
    TypeLine(line);
    person_.Finish();
}

void DeskFixture::WhenAsked(const QString& prompt, const std::function<void()>& step) {
    person_.Then("asked for " + prompt.toStdString(), [=, this] {
        if (!session_.Feed().IsWaiting()) {
            return false;
        }
        EXPECT_TRUE(prompt.isEmpty() || prompt == Prompt()) << Prompt().toStdString();
        step();
        return true;
    });
}

QString DeskFixture::Prompt() const {
    return window_.findChild<QLabel*>("prompt")->text();
}

QStringList DeskFixture::SheetPaths() const {
    QStringList paths;
    for (const auto& sheet : suite_.Sheets()) {
        paths << QString::fromStdString(sheet);
    }
    return paths;
}

void DeskFixture::DrawSheet(const QString& borehole, const QStringList& samples) {
    person_.In(kSheetTitle, [=](QWidget& sheet) {
        ClickItem(*Control<QAbstractItemView>(sheet, 2008), borehole);
        for (const QString& sample : samples) {
            ClickItem(*Control<QAbstractItemView>(sheet, 2001), sample);
        }
    });
    person_.Press(kSheetTitle, IDOK);
    RunLine("CGRDX");
}

void DeskFixture::Press(Point at, Qt::KeyboardModifiers keys) {
    QTest::mousePress(&View(), Qt::LeftButton, keys, View().ToPixel(at).toPoint());
}

void DeskFixture::Move(Point to) {
    QCoreApplication::processEvents();  // a layout still to be done moves what the pixels show
    QTest::mouseMove(&View(), View().ToPixel(to).toPoint());
    QCoreApplication::processEvents();
}

void DeskFixture::Release(Point at) {
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, View().ToPixel(at).toPoint());
}

void DeskFixture::Click(Point at, Qt::KeyboardModifiers keys) {
    Press(at, keys);
    Release(at);
}

std::vector<AcDbObjectId> DeskFixture::Curves() const {
    std::vector<AcDbObjectId> curves;
    for (const picture::Item& item : View().Picture().items()) {
        if (AcDbDatabase::objectOf(item.entity)->isA()->name() == std::string("CKFCurve")) {
            curves.push_back(item.entity);
        }
    }
    return curves;
}

namespace {
const picture::Item& ItemOf(const picture::DisplayList& list, AcDbObjectId entity) {
    for (const picture::Item& item : list.items()) {
        if (item.entity == entity) {
            return item;
        }
    }
    throw std::logic_error("the entity is not drawn");
}
}  // namespace

Point DeskFixture::PointOn(AcDbObjectId curve) const {
    const picture::DisplayList& list = View().Picture();
    const auto shapes = list.shapes(ItemOf(list, curve));
    const auto line = list.points(shapes.front());
    desk::GripSet grips;
    grips.Load({curve});
    const double middle = (grips.Grips()[1].point.x + grips.Grips()[2].point.x) / 2.0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if ((line[i - 1].x - middle) * (line[i].x - middle) <= 0.0) {
            return (line[i - 1] + line[i]) * 0.5;
        }
    }
    throw std::logic_error("the curve has no line there");
}

QStringList DeskFixture::TextsOf(AcDbObjectId entity) const {
    const picture::DisplayList& list = View().Picture();
    QStringList texts;
    for (const picture::Shape& shape : list.shapes(ItemOf(list, entity))) {
        if (shape.kind == picture::ShapeKind::kGlyphs) {
            QString text;
            for (const picture::GlyphCell& cell : list.glyphs(shape).cells) {
                text += QString::fromUcs4(&cell.character, 1);
            }
            texts << text;
        }
    }
    return texts;
}

std::string DeskFixture::Stored(const std::string& query) const {
    const std::string row = suite_.Ask(query);
    const std::string value = row.substr(0, row.find('\n'));
    return value == "null" ? "" : value;
}
