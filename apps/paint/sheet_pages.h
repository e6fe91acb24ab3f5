#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <QString>

#include "apps/paint/PicturePainter.h"

namespace paint {

/// The part of a drawing that goes on a page, and the page's size in millimetres.
struct Page {
    picture::Box view;  ///< drawing units
    double width = 210.0;
    double height = 297.0;
};

/// The smaller of A4 upright and A3 lengthwise that holds everything drawn, from (0, 0), one unit a
/// millimetre. A drawing that fits neither gets a page around its extents with a margin; one that
/// would be larger than A0 is scaled to an A3 page.
Page PageOf(const picture::DisplayList& list);

struct PlotOptions {
    bool monochrome = false;
    double dpi = 200.0;  ///< of pictures
};

/// One drawing to be plotted.
struct Sheet {
    QString title;
    picture::DisplayList list;
};

/// How sheets look on paper.
Look PaperLook(const PlotOptions& options);

/// Paints the sheet's page as large as it fits into `target`, in the middle.
void PaintSheet(QPainter& painter, const Sheet& sheet, const QRectF& target,
                PicturePainter& pictures, const Look& look);

/// Sheets as pages of one PDF file in real size, with fonts embedded.
class PdfPages {
public:
    /// Writes into `file`, which is open for that. It and `pictures` must outlive the pages.
    PdfPages(PicturePainter& pictures, const PlotOptions& options, QIODevice& file);
    /// The first sheet gives the file its title.
    void Add(const Sheet& sheet);
    /// To be called once, after the last page.
    void Finish() { painter_.end(); }

private:
    PicturePainter& pictures_;
    PlotOptions options_;
    QPdfWriter writer_;
    QPainter painter_;
};

/// The sheet as an SVG page in real size, characters as outlines; the file's bytes.
QByteArray SvgOf(const Sheet& sheet, PicturePainter& painter, const PlotOptions& options);
/// The sheet as a PNG picture on white; the file's bytes, empty when it would have more than 500
/// million pixels.
QByteArray PngOf(const Sheet& sheet, PicturePainter& painter, const PlotOptions& options);

}  // namespace paint
