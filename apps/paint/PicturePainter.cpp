#include "apps/paint/PicturePainter.h"

#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace paint {

using picture::Box;
using picture::DisplayList;
using picture::Shape;
using picture::ShapeKind;

namespace {

constexpr int kForeground = 7;
constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr QRgb kHighlightLight = qRgb(0, 110, 220);
constexpr QRgb kHighlightDark = qRgb(90, 170, 255);
constexpr QRgb kOfferLight = qRgb(200, 110, 0);
constexpr QRgb kOfferDark = qRgb(255, 190, 70);
constexpr double kEmphasisWidth = 1.5;  ///< pixels more

bool IsAxisParallel(const QPolygonF& points) {
    constexpr double kPixels = 0.01;
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPointF step = points[i] - points[i - 1];
        if (std::abs(step.x()) > kPixels && std::abs(step.y()) > kPixels) {
            return false;
        }
    }
    return true;
}

}  // namespace

/// One call of paint().
class PicturePainter::Pass {
public:
    Pass(PicturePainter& owner, QPainter& painter, const DisplayList& list, const QTransform& map,
         const Look& look)
        : owner_(owner), painter_(painter), list_(list), map_(map), look_(look) {
        for (int i = 0; i < 256; ++i) {
            const picture::Rgb rgb =
                picture::ColorOf(look.monochrome ? kForeground : i, look.background);
            colors_[i] = QColor(rgb.red, rgb.green, rgb.blue);
        }
        pixelsPerUnit_ = std::sqrt(std::abs(map.determinant()));
    }

    void draw(const Box& view) {
        for (const picture::Item& item : list_.items()) {
            if (!item.box.meets(view)) {
                continue;
            }
            emphasis_ = look_.emphasis ? look_.emphasis(item.entity) : Emphasis::kNone;
            if (emphasis_ == Emphasis::kLeftOut) {
                continue;
            }
            const bool whole = view.contains(item.box);
            for (const Shape& shape : list_.shapes(item)) {
                if ((shape.printed || !look_.onPaper) && (whole || shape.box.meets(view))) {
                    draw(shape);
                }
            }
        }
        drawLevelLines();
    }

private:
    QPointF at(picture::Point p) const { return map_.map(QPointF(p.x, p.y)); }

    QColor colorOf(const Shape& shape) const {
        const bool light = look_.background == picture::Background::kLight;
        if (emphasis_ == Emphasis::kHighlighted) {
            return QColor::fromRgb(light ? kHighlightLight : kHighlightDark);
        }
        if (emphasis_ == Emphasis::kOffered) {
            return QColor::fromRgb(light ? kOfferLight : kOfferDark);
        }
        return colors_[shape.colorIndex];
    }

    QPen penOf(const Shape& shape) const {
        const double onPaper =
            shape.lineWeight < 0.0F ? kDefaultLineWeight : static_cast<double>(shape.lineWeight);
        const double weight =
            look_.onPaper ? std::max(onPaper * pixelsPerUnit_, look_.leastLineWidth) : 1.0;
        return QPen(colorOf(shape), emphasis_ != Emphasis::kNone ? weight + kEmphasisWidth : weight,
                    Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    }

    void usePen(const Shape& shape) {
        painter_.setPen(penOf(shape));
        painter_.setBrush(Qt::NoBrush);
    }

    void useBrush(const Shape& shape) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colorOf(shape));
    }

    void draw(const Shape& shape) {
        if (shape.kind == ShapeKind::kPolyline) {
            drawPolyline(shape, pointsOf(shape));
            return;
        }
        drawLevelLines();
        switch (shape.kind) {
            case ShapeKind::kFill:
                useBrush(shape);
                painter_.drawPolygon(pointsOf(shape), Qt::OddEvenFill);
                break;
            case ShapeKind::kArc:
                usePen(shape);
                painter_.drawPath(pathOf(list_.arc(shape)));
                break;
            default:
                drawGlyphs(shape, list_.glyphs(shape));
                break;
        }
    }

    /// On a screen, level and plumb lines stand on whole pixels: neither blurred over two of them
    /// nor of two widths. Those of one pen that follow each other, as in grids, are drawn at once.
    void drawPolyline(const Shape& shape, const QPolygonF& points) {
        // Of a line without length Qt draws nothing.
        if (shape.box.width() == 0.0 && shape.box.height() == 0.0) {
            drawLevelLines();
            usePen(shape);
            painter_.drawPoint(points.front());
            return;
        }
        if (look_.onPaper || !IsAxisParallel(points)) {
            drawLevelLines();
            usePen(shape);
            painter_.drawPolyline(points);
            return;
        }
        if (const QPen pen = penOf(shape); levelLines_.isEmpty() || pen != levelPen_) {
            drawLevelLines();
            levelPen_ = pen;
        }
        const auto pixel = [](QPointF p) {
            return QPointF(std::floor(p.x()) + 0.5, std::floor(p.y()) + 0.5);
        };
        for (qsizetype i = 1; i < points.size(); ++i) {
            levelLines_.append(QLineF(pixel(points[i - 1]), pixel(points[i])));
        }
    }

    void drawLevelLines() {
        if (!levelLines_.isEmpty()) {
            painter_.setPen(levelPen_);
            painter_.setRenderHint(QPainter::Antialiasing, false);
            painter_.drawLines(levelLines_);
            painter_.setRenderHint(QPainter::Antialiasing, true);
            levelLines_.clear();
        }
    }

    QPolygonF& pointsOf(const Shape& shape) {
        points_.clear();
        for (const picture::Point point : list_.points(shape)) {
            points_.append(at(point));
        }
        return points_;
    }

    /// Qt counts angles with y downwards, the drawing with y upwards: the ellipse is laid out in
    /// the drawing's coordinates, where Qt's clockwise is the drawing's counter-clockwise.
    QPainterPath pathOf(const picture::Arc& arc) const {
        const QRectF around(arc.center.x - arc.radius, arc.center.y - arc.radius, 2 * arc.radius,
                            2 * arc.radius);
        QPainterPath path;
        path.arcMoveTo(around, -arc.startAngle * kDegrees);
        path.arcTo(around, -arc.startAngle * kDegrees, -arc.sweepAngle * kDegrees);
        return map_.map(path);
    }

    void drawGlyphs(const Shape& shape, const picture::GlyphRun& run) {
        const GlyphFont& font = owner_.font(run.font, run.fullWidth);
        // Coordinates of the font, y downwards, to those of the run's cells.
        const picture::Affine& cells = run.cellToWorld;
        const QTransform cellToDevice = QTransform(cells.alongX.x, cells.alongX.y, cells.alongY.x,
                                                   cells.alongY.y, cells.origin.x, cells.origin.y) *
                                        map_;
        // Characters that are squeezed alike are one piece of text with one transform.
        const double fit = font.widthScale() * run.cellWidth;
        double squeeze = 1.0;
        for (const picture::GlyphCell& cell : run.cells) {
            const GlyphFont::Glyph& glyph = font.glyph(cell.character);
            const double wanted = glyph.advance > 1.0 ? 1.0 / glyph.advance : 1.0;
            if (wanted != squeeze) {
                drawPiece(shape, font, fit * squeeze, cellToDevice);
                squeeze = wanted;
            }
            const double left = cell.x + 0.5 * run.cellWidth * (1.0 - glyph.advance * squeeze);
            indexes_.append(glyph.index);
            positions_.append(QPointF(left / (fit * squeeze), 0.0));
        }
        drawPiece(shape, font, fit * squeeze, cellToDevice);
    }

    /// Characters too large for the cache of their pixels, which would be read from the font again
    /// for every frame. Devices without pixels keep the text.
    bool isLargeInPixels(const GlyphFont& font, const QTransform& fontToDevice) const {
        constexpr double kPixels = 50.0;
        const bool raster = painter_.paintEngine()->type() == QPaintEngine::Raster;
        const QPointF up =
            fontToDevice.map(QPointF(0.0, font.raw().pixelSize())) - fontToDevice.map(QPointF());
        return raster && std::hypot(up.x(), up.y()) > kPixels;
    }

    /// Draws and empties what was collected in `indexes_` and `positions_`.
    void drawPiece(const Shape& shape, const GlyphFont& font, double widthScale,
                   const QTransform& cellToDevice) {
        const QTransform fontToDevice = QTransform(widthScale, 0.0, 0.0, -font.heightScale(), 0.0,
                                                   font.drop() * font.heightScale()) *
                                        cellToDevice;
        if (look_.textAsOutlines || isLargeInPixels(font, fontToDevice)) {
            useBrush(shape);
            for (qsizetype i = 0; i < indexes_.size(); ++i) {
                painter_.drawPath(
                    fontToDevice.map(font.outline(indexes_[i]).translated(positions_[i])));
            }
        } else if (!indexes_.isEmpty()) {
            QGlyphRun glyphs;
            glyphs.setRawFont(font.raw());
            glyphs.setGlyphIndexes(indexes_);
            glyphs.setPositions(positions_);
            const QTransform kept = painter_.transform();
            painter_.setTransform(fontToDevice, true);
            painter_.setPen(colorOf(shape));
            painter_.drawGlyphRun(QPointF(), glyphs);
            painter_.setTransform(kept);
        }
        indexes_.clear();
        positions_.clear();
    }

    PicturePainter& owner_;
    QPainter& painter_;
    const DisplayList& list_;
    const QTransform& map_;
    const Look& look_;
    QColor colors_[256];
    double pixelsPerUnit_ = 1.0;
    Emphasis emphasis_ = Emphasis::kNone;  ///< of the entity being drawn
    QPolygonF points_;
    QList<QLineF> levelLines_;  ///< not yet drawn
    QPen levelPen_;
    QList<quint32> indexes_;
    QList<QPointF> positions_;
};

void PicturePainter::paint(QPainter& painter, const DisplayList& list,
                           const QTransform& worldToDevice, const Box& view, const Look& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    Pass(*this, painter, list, worldToDevice, look).draw(view);
    painter.restore();
}

const GlyphFont& PicturePainter::font(const std::string& family, bool fullWidth) {
    std::unique_ptr<GlyphFont>& font = fonts_[{family, fullWidth}];
    if (!font) {
        font = std::make_unique<GlyphFont>(QString::fromStdString(family), fullWidth);
    }
    return *font;
}

QTransform FitTransform(const Box& view, const QRectF& device) {
    const double scale = std::min(device.width() / view.width(), device.height() / view.height());
    const double left = device.left() + 0.5 * (device.width() - view.width() * scale);
    const double bottom = device.bottom() - 0.5 * (device.height() - view.height() * scale);
    return {scale, 0.0, 0.0, -scale, left - view.left * scale, bottom + view.bottom * scale};
}

Box ViewOf(const QTransform& worldToDevice, const QRectF& device) {
    const QRectF world = worldToDevice.inverted().mapRect(device);
    return {world.left(), world.top(), world.right(), world.bottom()};
}

}  // namespace paint
