#pragma once

#include <QPainter>
#include <QPrinter>

#include "apps/paint/sheet_pages.h"

namespace desk {

/// Sheets as pages of a printer: in real size where the paper is large enough, else scaled down to
/// what of the paper can be printed on.
class PrintedPages {
public:
    /// Prepares `printer` for pages of that size, so that a dialog in which the user chooses
    /// printer and paper begins with it.
    static void Prepare(QPrinter& printer, const paint::Page& first);

    /// To be made once the user has chosen. Each sheet is printed on paper of its own size, or all
    /// on the paper that the user has chosen instead of the one prepared. Both must outlive it.
    PrintedPages(QPrinter& printer, const paint::Page& first, paint::PicturePainter& pictures,
                 const paint::PlotOptions& options);
    /// A page outside the range that the user has chosen is passed over.
    void Add(const paint::Sheet& sheet);
    /// Sends the pages off. False when the printer cannot be reached or has given up.
    bool Finish();
    /// Gives the pages up.
    void Abort();

    int Printed() const { return printed_; }
    /// How many of them were scaled down.
    int ScaledDown() const { return scaledDown_; }

private:
    QRectF PlaceOf(const paint::Page& page);

    QPrinter& printer_;
    paint::PicturePainter& pictures_;
    paint::Look look_;
    bool ownPaper_;  ///< each sheet on paper of its size
    bool failed_ = false;
    int count_ = 0;
    int printed_ = 0;
    int scaledDown_ = 0;
    QPainter painter_;
};

}  // namespace desk
