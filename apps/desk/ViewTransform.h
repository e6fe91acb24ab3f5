#pragma once

#include <QPointF>
#include <QSize>
#include <QTransform>

#include "host/picture/plane.h"
#include "platform/ap/AcApDocument.h"

namespace desk {

/// Between a window's pixels (y downwards) and the drawing's plane, by the part of the plane that a
/// document shows: all of it fits into the window, in the middle.
class ViewTransform {
public:
    ViewTransform(const AcApView& view, QSize window);

    QPointF ToPixel(picture::Point point) const;
    picture::Point ToPlane(QPointF pixel) const;
    /// Pixels a drawing unit.
    double Scale() const { return scale_; }
    QTransform Map() const;
    /// The part of the plane that the window shows.
    picture::Box Visible() const;

private:
    picture::Point center_;
    QPointF middle_;
    QSize window_;
    double scale_;
};

/// Enlarges what the view shows by `factor` about a point of the plane, which stays where it is.
void ZoomAbout(AcApView& view, picture::Point fixed, double factor);
/// Moves what the view shows so that what was at `from` comes to `to`.
void Pan(AcApView& view, picture::Point from, picture::Point to);

}  // namespace desk
