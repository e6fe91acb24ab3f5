#include "apps/desk/ViewTransform.h"

#include <algorithm>

namespace desk {

namespace {
/// Of the window's width and height; what is drawn at the edge is seen as a whole.
constexpr double kUsed = 0.98;
// Beyond these, coordinates lose their last digits.
constexpr double kLeastHeight = 1e-6;
constexpr double kGreatestHeight = 1e12;
}  // namespace

ViewTransform::ViewTransform(const AcApView& view, QSize window)
    : center_{view.center.x, view.center.y},
      middle_(window.width() / 2.0, window.height() / 2.0),
      window_(window.expandedTo(QSize(1, 1))),
      scale_(kUsed * std::min(window_.width() / view.width, window_.height() / view.height)) {}

QPointF ViewTransform::ToPixel(picture::Point point) const {
    return {middle_.x() + (point.x - center_.x) * scale_,
            middle_.y() - (point.y - center_.y) * scale_};
}

picture::Point ViewTransform::ToPlane(QPointF pixel) const {
    return {center_.x + (pixel.x() - middle_.x()) / scale_,
            center_.y - (pixel.y() - middle_.y()) / scale_};
}

QTransform ViewTransform::Map() const {
    const QPointF origin = ToPixel({0.0, 0.0});
    return {scale_, 0.0, 0.0, -scale_, origin.x(), origin.y()};
}

picture::Box ViewTransform::Visible() const {
    picture::Box box;
    box.add(ToPlane(QPointF(0.0, 0.0)));
    box.add(ToPlane(QPointF(window_.width(), window_.height())));
    return box;
}

void ZoomAbout(AcApView& view, picture::Point fixed, double factor) {
    const double height = std::clamp(view.height / factor, kLeastHeight, kGreatestHeight);
    const double ratio = height / view.height;
    view.height = height;
    view.width *= ratio;
    view.center.x = fixed.x + (view.center.x - fixed.x) * ratio;
    view.center.y = fixed.y + (view.center.y - fixed.y) * ratio;
}

void Pan(AcApView& view, picture::Point from, picture::Point to) {
    view.center.x -= to.x - from.x;
    view.center.y -= to.y - from.y;
}

}  // namespace desk
