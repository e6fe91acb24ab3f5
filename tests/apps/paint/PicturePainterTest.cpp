#include "apps/paint/PicturePainter.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <cmath>

#include "apps/paint/sheet_pages.h"

namespace {

using picture::DisplayList;
using picture::Point;

/// The application that fonts need, without a screen.
class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "test_paint";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QGuiApplication>(count, arguments);
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QGuiApplication> application_;
};
[[maybe_unused]] const auto* const kApplication =
    testing::AddGlobalTestEnvironment(new Application);

const AcDbObjectId kFirst(reinterpret_cast<AcDbStub*>(8));
const AcDbObjectId kSecond(reinterpret_cast<AcDbStub*>(16));

/// A red line of 1 mm, a black triangle, a green circle's lower half and a text of 10 units.
DisplayList Sample() {
    DisplayList list;
    list.beginItem(kFirst);
    const Point line[] = {{10, 10}, {90, 10}};
    list.addPolyline(line, 1, 1.0F);
    list.endItem();
    list.beginItem(kSecond);
    const Point triangle[] = {{10, 20}, {30, 20}, {10, 40}};
    list.addFill(triangle, 7);
    list.addArc({{60, 40}, 15.0, M_PI, M_PI}, 3, 1.0F);
    list.endItem();
    return list;
}

DisplayList TextOf(const std::u32string& text, bool fullWidth, double widthFactor) {
    DisplayList list;
    list.beginItem(kFirst);
    picture::GlyphRun run;
    run.cellToWorld = {{10, 10}, {20.0 * widthFactor, 0}, {0, 20}};
    run.font = fullWidth ? "WenQuanYi Zen Hei" : "WenQuanYi Zen Hei Mono";
    run.fullWidth = fullWidth;
    for (const char32_t character : text) {
        run.cells.push_back({character, static_cast<double>(run.cells.size())});
    }
    list.addGlyphs(run, 7);
    list.endItem();
    return list;
}

/// The list on 100 x 50 units at 10 pixels a unit, on white.
QImage Painted(const DisplayList& list, const paint::Look& look) {
    QImage image(1000, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const picture::Box view{0, 0, 100, 50};
    paint::PicturePainter().paint(painter, list, paint::FitTransform(view, QRectF(0, 0, 1000, 500)),
                                  view, look);
    return image;
}

QColor At(const QImage& image, double x, double y) {
    return image.pixelColor(static_cast<int>(x * 10), static_cast<int>((50 - y) * 10));
}

/// The box around what is darker than half, drawing units.
picture::Box InkOf(const QImage& image) {
    picture::Box box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                box.add(Point{x / 10.0, 50 - y / 10.0});
                box.add(Point{(x + 1) / 10.0, 50 - (y + 1) / 10.0});
            }
        }
    }
    return box;
}

TEST(PicturePainter, ShapesStandWhereTheDrawingHasThemInTheirColoursAndWeights) {
    paint::Look paper;
    paper.onPaper = true;
    const QImage image = Painted(Sample(), paper);
    EXPECT_EQ(At(image, 50, 10.4), QColor(255, 0, 0)) << "half of a millimetre up";
    EXPECT_EQ(At(image, 50, 10.7), QColor(Qt::white));
    EXPECT_EQ(At(image, 12, 22), QColor(Qt::black));
    EXPECT_EQ(At(image, 28, 38), QColor(Qt::white));
    EXPECT_EQ(At(image, 60, 25), QColor(0, 255, 0)) << "the lower half of the circle";
    EXPECT_EQ(At(image, 60, 49.9), QColor(Qt::white));

    paper.monochrome = true;
    EXPECT_EQ(At(Painted(Sample(), paper), 50, 10), QColor(Qt::black));

    const paint::Look screen;
    const QImage thin = Painted(Sample(), screen);
    EXPECT_EQ(At(thin, 50, 10.4), QColor(Qt::white)) << "one pixel at any zoom";
    int red = 0;
    for (int y = 0; y < 500; ++y) {
        red += thin.pixelColor(500, y) == QColor(255, 0, 0) ? 1 : 0;
    }
    EXPECT_EQ(red, 1) << "neither blurred nor doubled";
}

TEST(PicturePainter, DotsAreSeenAndPaperLacksWhatIsNotPrinted) {
    DisplayList list;
    list.beginItem(kFirst);
    const Point dots[] = {{50, 10}, {50, 10}};
    list.addPolyline(dots, 1, 1.0F);
    list.setPrinted(false);
    const Point guide[] = {{10, 30}, {90, 30}};
    list.addPolyline(guide, 1, 1.0F);
    list.endItem();
    const Point far[] = {{10, 30}, {90, 3000}};
    list.beginItem(kSecond);
    list.addPolyline(far, 1, 1.0F);
    list.endItem();
    EXPECT_DOUBLE_EQ(paint::PageOf(list).height, 297.0) << "nor does it make the page larger";
    paint::Look look;
    for (const bool paper : {false, true}) {
        look.onPaper = paper;
        const QImage image = Painted(list, look);
        EXPECT_NE(At(image, 50, 10), QColor(Qt::white)) << paper;
        EXPECT_EQ(At(image, 50, 30) == QColor(Qt::white), paper);
    }
}

TEST(PicturePainter, EntitiesAreHighlightedLeftOutAndTurnedOver) {
    paint::Look look;
    look.background = picture::Background::kDark;
    look.emphasis = [](AcDbObjectId entity) {
        return entity == kFirst ? paint::Emphasis::kLeftOut : paint::Emphasis::kHighlighted;
    };
    const QImage image = Painted(Sample(), look);
    EXPECT_EQ(At(image, 50, 10), QColor(Qt::white)) << "left out";
    const QColor highlighted = At(image, 12, 22);
    EXPECT_NE(highlighted, QColor(Qt::black));
    EXPECT_NE(highlighted, QColor(Qt::white));
    look.emphasis = [](AcDbObjectId) { return paint::Emphasis::kOffered; };
    const QColor offered = At(Painted(Sample(), look), 12, 22);
    EXPECT_NE(offered, highlighted);
    EXPECT_NE(offered, QColor(Qt::white));
    look.emphasis = nullptr;
    QImage black = Painted(Sample(), look);
    EXPECT_EQ(At(black, 12, 22), QColor(Qt::white)) << "index 7 on a dark background";
}

TEST(PicturePainter, TextsFillTheCellsThatLayoutsCountWith) {
    // Capitals and full-width characters stand on the baseline and are as tall as the text; each
    // character keeps within its cell, so a text of n is n cells wide at most.
    for (const bool outlines : {false, true}) {
        paint::Look look;
        look.textAsOutlines = outlines;
        for (const double widthFactor : {0.7, 1.0}) {
            const picture::Box latin = InkOf(Painted(TextOf(U"HWH", false, widthFactor), look));
            EXPECT_NEAR(latin.bottom, 10.0, 0.25);
            EXPECT_NEAR(latin.top, 30.0, 0.25);
            EXPECT_GE(latin.left, 9.9);
            EXPECT_LE(latin.right, 10.1 + 60.0 * widthFactor);
            EXPECT_GT(latin.width(), 50.0 * widthFactor);
            const picture::Box chinese = InkOf(Painted(TextOf(U"国国", true, widthFactor), look));
            EXPECT_NEAR(chinese.bottom, 10.0, 0.25);
            EXPECT_NEAR(chinese.top, 30.0, 0.25);
            EXPECT_GE(chinese.left, 10.0);
            EXPECT_LE(chinese.right, 10.0 + 40.0 * widthFactor);
            EXPECT_GT(chinese.width(), 34.0 * widthFactor);
        }
    }
}

TEST(SheetPages, PagesHaveTheSheetsSize) {
    const std::tuple<const char*, picture::Box, double, double> cases[] = {
        {"A4 sheet", {2, 2, 208, 295}, 210, 297},
        {"A3 sheet, a line's half over the edge", {0, -0.3, 420, 297}, 420, 297},
        {"beside the sheet", {-50, 0, 100, 100}, 170, 120},
        {"larger than A3", {0, 0, 700, 500}, 720, 520},
        {"a site plan in millimetres", {0, 0, 50000, 30000}, 420, 297},
        {"an upright one", {0, 0, 3000, 50000}, 297, 420},
    };
    for (const auto& [what, drawn, width, height] : cases) {
        DisplayList list;
        list.beginItem(kFirst);
        const Point diagonal[] = {{drawn.left, drawn.bottom}, {drawn.right, drawn.top}};
        list.addPolyline(diagonal, 7, 0.0F);
        list.endItem();
        const paint::Page page = paint::PageOf(list);
        EXPECT_DOUBLE_EQ(page.width, width) << what;
        EXPECT_DOUBLE_EQ(page.height, height) << what;
    }
    EXPECT_DOUBLE_EQ(paint::PageOf(DisplayList()).height, 297.0);
    paint::PicturePainter pictures;
    const QImage picture = QImage::fromData(paint::PngOf({"A4", {}}, pictures, {false, 127.0}));
    EXPECT_EQ(picture.size(), QSize(1050, 1485));
    EXPECT_EQ(picture.dotsPerMeterX(), 5000) << "programs place it in its real size";
}

}  // namespace
