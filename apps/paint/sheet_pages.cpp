#include "apps/paint/sheet_pages.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QSvgGenerator>
#include <cmath>

namespace paint {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kShortSide = 210.0;  // of A4
constexpr double kLongSide = 297.0;   // of A4, and the short side of A3
constexpr double kA3LongSide = 420.0;
constexpr double kLargestSide = 1189.0;  // of A0
constexpr double kMargin = 10.0;
/// A hundred dots a millimetre: sheets' coordinates are short numbers of them.
constexpr int kPdfResolution = 2540;
/// What may reach over the edge of a sheet: half a line, the room that glyph boxes keep.
constexpr double kOverhang = 1.0;

Page RealSize(const picture::Box& view) {
    return {view, view.width(), view.height()};
}

QPageSize PageSizeOf(const Page& page) {
    return QPageSize(QSizeF(page.width, page.height), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

}  // namespace

Page PageOf(const picture::DisplayList& list) {
    const picture::Box& box = list.printedBox();
    if (box.isEmpty()) {
        return RealSize({0.0, 0.0, kShortSide, kLongSide});
    }
    for (const double width : {kShortSide, kA3LongSide}) {
        const picture::Box paper{0.0, 0.0, width, kLongSide};
        if (picture::Box{-kOverhang, -kOverhang, width + kOverhang, kLongSide + kOverhang}.contains(
                box)) {
            return RealSize(paper);
        }
    }
    const picture::Box around{box.left - kMargin, box.bottom - kMargin, box.right + kMargin,
                              box.top + kMargin};
    if (std::max(around.width(), around.height()) <= kLargestSide) {
        return RealSize(around);
    }
    return box.width() > box.height() ? Page{box, kA3LongSide, kLongSide}
                                      : Page{box, kLongSide, kA3LongSide};
}

Look PaperLook(const PlotOptions& options) {
    Look look;
    look.monochrome = options.monochrome;
    look.onPaper = true;
    return look;
}

void PaintSheet(QPainter& painter, const Sheet& sheet, const QRectF& target,
                PicturePainter& pictures, const Look& look) {
    const picture::Box view = PageOf(sheet.list).view;
    pictures.paint(painter, sheet.list, FitTransform(view, target), view, look);
}

PdfPages::PdfPages(PicturePainter& pictures, const PlotOptions& options, QIODevice& file)
    : pictures_(pictures), options_(options), writer_(&file) {
    writer_.setResolution(kPdfResolution);
    writer_.setPageMargins(QMarginsF());
    writer_.setCreator(QStringLiteral("GRDX"));
}

void PdfPages::Add(const Sheet& sheet) {
    const Page page = PageOf(sheet.list);
    writer_.setPageSize(PageSizeOf(page));
    if (painter_.isActive()) {
        writer_.newPage();
    } else {
        writer_.setTitle(sheet.title);
        painter_.begin(&writer_);
    }
    const double dotsPerMillimetre = kPdfResolution / kMillimetresPerInch;
    PaintSheet(painter_, sheet,
               QRectF(0.0, 0.0, page.width * dotsPerMillimetre, page.height * dotsPerMillimetre),
               pictures_, PaperLook(options_));
}

QByteArray SvgOf(const Sheet& sheet, PicturePainter& pictures, const PlotOptions& options) {
    constexpr int kDotsPerMillimetre = 100;
    const Page page = PageOf(sheet.list);
    const QSizeF dots(page.width * kDotsPerMillimetre, page.height * kDotsPerMillimetre);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(kDotsPerMillimetre * kMillimetresPerInch));
    generator.setSize(dots.toSize());
    generator.setViewBox(QRectF(QPointF(), dots));
    generator.setTitle(sheet.title);
    QPainter painter(&generator);
    Look look = PaperLook(options);
    look.textAsOutlines = true;
    PaintSheet(painter, sheet, QRectF(QPointF(), dots), pictures, look);
    painter.end();
    return bytes;
}

QByteArray PngOf(const Sheet& sheet, PicturePainter& pictures, const PlotOptions& options) {
    constexpr double kMostPixels = 5e8;
    const Page page = PageOf(sheet.list);
    const double dotsPerMillimetre = options.dpi / kMillimetresPerInch;
    const QSizeF dots(std::round(page.width * dotsPerMillimetre),
                      std::round(page.height * dotsPerMillimetre));
    if (!(dots.width() * dots.height() <= kMostPixels)) {
        return {};
    }
    QImage image(dots.toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(static_cast<int>(std::round(dotsPerMillimetre * 1000.0)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    PaintSheet(painter, sheet, QRectF(QPointF(), dots), pictures, PaperLook(options));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace paint
