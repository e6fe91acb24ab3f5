#include "apps/desk/PrintedPages.h"

#include <QPageLayout>
#include <QPageRanges>
#include <algorithm>

namespace desk {

namespace {
constexpr double kMillimetresPerInch = 25.4;
constexpr double kToleranceMillimetres = 1.0;  // papers are measured in whole points

/// Printers know sizes upright, and how they lie.
QPageSize PaperOf(const paint::Page& page) {
    return QPageSize(QSizeF(std::min(page.width, page.height), std::max(page.width, page.height)),
                     QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
}

QPageLayout::Orientation OrientationOf(const paint::Page& page) {
    return page.width > page.height ? QPageLayout::Landscape : QPageLayout::Portrait;
}
}  // namespace

void PrintedPages::Prepare(QPrinter& printer, const paint::Page& first) {
    printer.setFullPage(true);
    printer.setPageSize(PaperOf(first));
    printer.setPageOrientation(OrientationOf(first));
}

PrintedPages::PrintedPages(QPrinter& printer, const paint::Page& first,
                           paint::PicturePainter& pictures, const paint::PlotOptions& options)
    : printer_(printer),
      pictures_(pictures),
      look_(PaperLook(options)),
      ownPaper_(printer.pageLayout().pageSize().isEquivalentTo(PaperOf(first))) {}

void PrintedPages::Add(const paint::Sheet& sheet) {
    ++count_;
    const bool isChosen = printer_.printRange() != QPrinter::PageRange ||
                          printer_.pageRanges().isEmpty() || printer_.pageRanges().contains(count_);
    if (failed_ || !isChosen) {
        return;
    }
    const paint::Page page = paint::PageOf(sheet.list);
    if (ownPaper_) {
        printer_.setPageSize(PaperOf(page));
    }
    printer_.setPageOrientation(OrientationOf(page));
    if (!painter_.isActive()) {
        printer_.setDocName(sheet.title);
    }
    failed_ = !(painter_.isActive() ? printer_.newPage() : painter_.begin(&printer_));
    if (!failed_) {
        PaintSheet(painter_, sheet, PlaceOf(page), pictures_, look_);
        ++printed_;
    }
}

/// Where the page goes on the paper, in dots.
QRectF PrintedPages::PlaceOf(const paint::Page& page) {
    const QPageLayout layout = printer_.pageLayout();
    const QSizeF paper = layout.fullRect(QPageLayout::Millimeter).size();
    if (page.width > paper.width() + kToleranceMillimetres ||
        page.height > paper.height() + kToleranceMillimetres) {
        ++scaledDown_;
        return layout.paintRectPixels(printer_.resolution());
    }
    const double dots = printer_.resolution() / kMillimetresPerInch;
    QRectF place(0.0, 0.0, page.width * dots, page.height * dots);
    place.moveCenter(QRectF(layout.fullRectPixels(printer_.resolution())).center());
    return place;
}

bool PrintedPages::Finish() {
    const bool ended = !painter_.isActive() || painter_.end();
    return ended && !failed_ && printer_.printerState() != QPrinter::Error;
}

void PrintedPages::Abort() {
    if (painter_.isActive()) {
        printer_.abort();
        painter_.end();
    }
}

}  // namespace desk
