#include "host/picture/DisplayList.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace picture {

namespace {

constexpr int kForeground = 7;

Box BoxOf(const Arc& arc) {
    constexpr double kQuarter = std::numbers::pi / 2.0;
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const double from = std::min(arc.startAngle, arc.startAngle + arc.sweepAngle);
    const double sweep = std::min(std::abs(arc.sweepAngle), kTurn);
    const auto at = [&](double angle) {
        return arc.center + Point{std::cos(angle), std::sin(angle)} * arc.radius;
    };
    Box box;
    box.add(at(from));
    box.add(at(from + sweep));
    const double firstQuarter = std::ceil(from / kQuarter);
    for (int i = 0; i < 4 && (firstQuarter + i) * kQuarter <= from + sweep; ++i) {
        box.add(at((firstQuarter + i) * kQuarter));
    }
    return box;
}

/// Glyphs may reach below their baseline and beyond the height of capitals.
Box BoxOf(const GlyphRun& run) {
    constexpr double kBelow = -0.4;
    constexpr double kAbove = 1.3;
    constexpr double kBeside = 0.1;
    Box box;
    const double left = run.cells.front().x - kBeside;
    const double right = run.cells.back().x + run.cellWidth + kBeside;
    for (const Point corner :
         {Point{left, kBelow}, {right, kBelow}, {right, kAbove}, {left, kAbove}}) {
        box.add(run.cellToWorld.map(corner));
    }
    return box;
}

}  // namespace

void DisplayList::beginItem(AcDbObjectId entity) {
    items_.push_back({entity, static_cast<std::uint32_t>(shapes_.size()), 0, {}});
}

void DisplayList::endItem() {
    if (items_.back().shapeCount == 0) {
        items_.pop_back();
    } else {
        box_.add(items_.back().box);
    }
}

void DisplayList::addPolyline(std::span<const Point> points, int colorIndex, float lineWeight) {
    addPoints(ShapeKind::kPolyline, points, colorIndex, lineWeight);
}

void DisplayList::addFill(std::span<const Point> points, int colorIndex) {
    addPoints(ShapeKind::kFill, points, colorIndex, 0.0F);
}

void DisplayList::addPoints(ShapeKind kind, std::span<const Point> points, int colorIndex,
                            float lineWeight) {
    if (points.empty() || !shown_) {
        return;
    }
    Shape shape;
    shape.kind = kind;
    shape.lineWeight = lineWeight;
    shape.first = static_cast<std::uint32_t>(points_.size());
    shape.count = static_cast<std::uint32_t>(points.size());
    for (const Point point : points) {
        shape.box.add(point);
    }
    points_.insert(points_.end(), points.begin(), points.end());
    add(shape, colorIndex);
}

void DisplayList::addArc(const Arc& arc, int colorIndex, float lineWeight) {
    if (!shown_) {
        return;
    }
    Shape shape;
    shape.kind = ShapeKind::kArc;
    shape.lineWeight = lineWeight;
    shape.first = static_cast<std::uint32_t>(arcs_.size());
    shape.count = 1;
    shape.box = BoxOf(arc);
    arcs_.push_back(arc);
    add(shape, colorIndex);
}

void DisplayList::addGlyphs(GlyphRun run, int colorIndex) {
    if (run.cells.empty() || !shown_) {
        return;
    }
    Shape shape;
    shape.kind = ShapeKind::kGlyphs;
    shape.first = static_cast<std::uint32_t>(runs_.size());
    shape.count = 1;
    shape.box = BoxOf(run);
    runs_.push_back(std::move(run));
    add(shape, colorIndex);
}

void DisplayList::add(Shape shape, int colorIndex) {
    // A box that is not finite would be in every view and on no page.
    const Box& box = shape.box;
    if (!std::isfinite(box.left + box.right + box.bottom + box.top)) {
        return;
    }
    shape.colorIndex =
        static_cast<std::uint8_t>(colorIndex >= 1 && colorIndex <= 255 ? colorIndex : kForeground);
    shape.printed = printed_;
    shapes_.push_back(shape);
    if (printed_) {
        printedBox_.add(box);
    }
    Item& item = items_.back();
    ++item.shapeCount;
    item.box.add(box);
}

}  // namespace picture
