// What a drawing view looks like: the drawing, over it what is being done to it.

#include <QPainter>

#include "apps/desk/DrawingView.h"
#include "platform/ge/AcGePoint3d.h"

namespace desk {

namespace {
constexpr double kGripPixels = 9.0;
constexpr double kRubberChordPixels = 0.25;

const QColor kCoolGrip(0, 110, 230);
const QColor kHotGrip(225, 30, 30);
const QColor kRubber(255, 170, 0);
const QColor kWithin(40, 120, 220);
const QColor kCrossing(40, 160, 60);
constexpr int kWindowAlpha = 50;

QRectF GripSquare(QPointF center) {
    return {center.x() - kGripPixels / 2.0, center.y() - kGripPixels / 2.0, kGripPixels,
            kGripPixels};
}
}  // namespace

void DrawingView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const bool dark = look_.background == picture::Background::kDark;
    painter.fillRect(rect(), database_ == nullptr ? palette().color(QPalette::Mid)
                             : dark               ? QColor(Qt::black)
                                                  : QColor(Qt::white));
    if (database_ == nullptr) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const ViewTransform transform = Transform();
    painter_.paint(painter, Picture(), transform.Map(), transform.Visible(), look_);
    PaintRubber(painter);
    PaintGrips(painter);
    PaintWindow(painter);
}

/// The curve draws nothing of itself while it is dragged: the view draws the line that it will be.
void DrawingView::PaintRubber(QPainter& painter) const {
    if (!grips_.IsDragging()) {
        return;
    }
    const ViewTransform transform = Transform();
    painter.setPen(QPen(kRubber, 1.5));
    painter.setBrush(Qt::NoBrush);
    for (const auto& line : grips_.RubberLines(kRubberChordPixels / transform.Scale())) {
        QPolygonF pixels;
        for (const AcGePoint3d& point : line) {
            pixels.append(transform.ToPixel({point.x, point.y}));
        }
        painter.drawPolyline(pixels);
    }
    const picture::Point base = grips_.Base();
    painter.setPen(QPen(kRubber, 1.0, Qt::DotLine));
    painter.drawLine(transform.ToPixel(base), transform.ToPixel(base + grips_.Offset()));
}

void DrawingView::PaintGrips(QPainter& painter) const {
    const ViewTransform transform = Transform();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QColor(Qt::white), 1.0));
    for (const GripSet::Grip& grip : grips_.Grips()) {
        painter.setBrush(grip.hot ? kHotGrip : kCoolGrip);
        painter.drawRect(GripSquare(transform.ToPixel({grip.point.x, grip.point.y})));
    }
}

void DrawingView::PaintWindow(QPainter& painter) const {
    if (!windowCorner_) {
        return;
    }
    const bool crossing = cursor_.x < windowCorner_->x;
    QColor color = crossing ? kCrossing : kWithin;
    painter.setPen(QPen(color, 1.0, crossing ? Qt::DashLine : Qt::SolidLine));
    color.setAlpha(kWindowAlpha);
    painter.setBrush(color);
    painter.drawRect(QRectF(ToPixel(*windowCorner_), ToPixel(cursor_)).normalized());
}

}  // namespace desk
