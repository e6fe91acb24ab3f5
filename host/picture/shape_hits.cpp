#include "host/picture/shape_hits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace picture {

namespace {
constexpr int kChordsOfATurn = 90;
constexpr double kTurn = 2.0 * std::numbers::pi;

std::vector<Point> ChordsOf(const Arc& arc) {
    const int chords =
        std::max(2, static_cast<int>(std::ceil(kChordsOfATurn * std::abs(arc.sweepAngle) / kTurn)));
    std::vector<Point> points;
    for (int i = 0; i <= chords; ++i) {
        const double angle = arc.startAngle + arc.sweepAngle * i / chords;
        points.push_back(arc.center +
                         Point{arc.radius * std::cos(angle), arc.radius * std::sin(angle)});
    }
    return points;
}

/// Corners around a run of characters, the first repeated at the end.
std::vector<Point> OutlineOf(const GlyphRun& run) {
    double width = 0.0;
    for (const GlyphCell& cell : run.cells) {
        width = std::max(width, cell.x + run.cellWidth);
    }
    const Affine& map = run.cellToWorld;
    return {map.map({0, 0}), map.map({width, 0}), map.map({width, 1}), map.map({0, 1}),
            map.map({0, 0})};
}

/// A shape as a line through points; `filled` when it is the area within them.
std::vector<Point> LineOf(const DisplayList& list, const Shape& shape, bool& filled) {
    filled = shape.kind == ShapeKind::kFill || shape.kind == ShapeKind::kGlyphs;
    if (shape.kind == ShapeKind::kArc) {
        return ChordsOf(list.arc(shape));
    }
    if (shape.kind == ShapeKind::kGlyphs) {
        return OutlineOf(list.glyphs(shape));
    }
    const auto points = list.points(shape);
    std::vector<Point> line(points.begin(), points.end());
    if (filled && !line.empty()) {
        line.push_back(line.front());
    }
    return line;
}

double Distance(Point p, Point start, Point end) {
    const Point along = end - start;
    const double square = along.x * along.x + along.y * along.y;
    const Point from = p - start;
    const double t =
        square > 0.0 ? std::clamp((from.x * along.x + from.y * along.y) / square, 0.0, 1.0) : 0.0;
    const Point off = from - along * t;
    return std::hypot(off.x, off.y);
}

bool IsWithin(Point p, const std::vector<Point>& ring) {
    bool within = false;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        const Point& a = ring[i];
        const Point& b = ring[i + 1];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
            within = !within;
        }
    }
    return within;
}

double Distance(Point p, const Arc& arc) {
    const Point out = p - arc.center;
    const double start = std::min(arc.startAngle, arc.startAngle + arc.sweepAngle);
    const double past = std::remainder(std::atan2(out.y, out.x) - start, kTurn);
    if ((past < 0.0 ? past + kTurn : past) <= std::abs(arc.sweepAngle)) {
        return std::abs(std::hypot(out.x, out.y) - arc.radius);
    }
    double nearest = std::numeric_limits<double>::infinity();
    for (const double angle : {start, start + std::abs(arc.sweepAngle)}) {
        const Point off = out - Point{std::cos(angle), std::sin(angle)} * arc.radius;
        nearest = std::min(nearest, std::hypot(off.x, off.y));
    }
    return nearest;
}

double Distance(const DisplayList& list, const Shape& shape, Point p) {
    if (shape.kind == ShapeKind::kArc) {
        return Distance(p, list.arc(shape));
    }
    bool filled = false;
    const std::vector<Point> line = LineOf(list, shape, filled);
    if (filled && IsWithin(p, line)) {
        return 0.0;
    }
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < line.size(); ++i) {
        nearest = std::min(nearest, Distance(p, line[i], line[std::min(i + 1, line.size() - 1)]));
    }
    return nearest;
}

/// Whether the segment has a point in the box: what is left of it between the box's sides.
bool Meets(Point start, Point end, const Box& box) {
    double from = 0.0;
    double to = 1.0;
    const Point along = end - start;
    const auto clip = [&](double direction, double distance) {
        if (direction == 0.0) {
            return distance >= 0.0;
        }
        const double t = distance / direction;
        (direction < 0.0 ? from : to) = direction < 0.0 ? std::max(from, t) : std::min(to, t);
        return from <= to;
    };
    return clip(-along.x, start.x - box.left) && clip(along.x, box.right - start.x) &&
           clip(-along.y, start.y - box.bottom) && clip(along.y, box.top - start.y);
}

bool Meets(const DisplayList& list, const Shape& shape, const Box& box) {
    if (!shape.box.meets(box)) {
        return false;
    }
    bool filled = false;
    const std::vector<Point> line = LineOf(list, shape, filled);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (Meets(line[i], line[std::min(i + 1, line.size() - 1)], box)) {
            return true;
        }
    }
    return filled && IsWithin({box.left, box.bottom}, line);
}
}  // namespace

std::vector<Hit> EntitiesAt(const DisplayList& list, Point point, double reach) {
    Box around;
    around.add(point - Point{reach, reach});
    around.add(point + Point{reach, reach});
    std::vector<Hit> hits;
    for (const Item& item : list.items()) {
        if (!item.box.meets(around)) {
            continue;
        }
        double nearest = std::numeric_limits<double>::infinity();
        for (const Shape& shape : list.shapes(item)) {
            if (shape.box.meets(around)) {
                nearest = std::min(nearest, Distance(list, shape, point));
            }
        }
        if (nearest <= reach) {
            hits.push_back({item.entity, nearest});
        }
    }
    std::reverse(hits.begin(), hits.end());
    std::stable_sort(hits.begin(), hits.end(),
                     [](const Hit& a, const Hit& b) { return a.distance < b.distance; });
    return hits;
}

std::vector<AcDbObjectId> EntitiesIn(const DisplayList& list, const Box& box, bool crossing) {
    std::vector<AcDbObjectId> found;
    for (const Item& item : list.items()) {
        const auto shapes = list.shapes(item);
        const bool in =
            box.contains(item.box) ||
            (crossing && std::any_of(shapes.begin(), shapes.end(),
                                     [&](const Shape& shape) { return Meets(list, shape, box); }));
        if (in) {
            found.push_back(item.entity);
        }
    }
    return found;
}

}  // namespace picture
