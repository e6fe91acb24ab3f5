#include "platform/db/hatch_outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/db/entity_drawing.h"
#include "platform/ge/nurb_sampling.h"
#include "platform/gi/shape_outline.h"

namespace db {

namespace {

constexpr double kChordError = 0.01;

void appendArc(Outline& outline, const AcGePoint2d& center, double radius, double start,
               double sweep) {
    for (const AcGePoint3d& p : gi::ArcPoints({center.x, center.y, 0.0}, radius, start, sweep)) {
        outline.emplace_back(p.x, p.y);
    }
}

/// Appends an edge's points, both ends included. Clockwise arcs count their angles clockwise.
struct EdgeAppender {
    Outline& outline;

    void operator()(const AcDbHatch::LineEdge& edge) const {
        outline.push_back(edge.start);
        outline.push_back(edge.end);
    }
    void operator()(const AcDbHatch::CircularArcEdge& edge) const {
        const double sign = edge.counterClockwise ? 1.0 : -1.0;
        appendArc(outline, edge.center, edge.radius, sign * edge.startAngle,
                  sign * (edge.endAngle - edge.startAngle));
    }
    void operator()(const AcDbHatch::EllipticArcEdge& edge) const {
        const double sign = edge.counterClockwise ? 1.0 : -1.0;
        Outline unit;
        appendArc(unit, {}, 1.0, sign * edge.startAngle, sign * (edge.endAngle - edge.startAngle));
        const AcGePoint2d& axis = edge.majorAxisEnd;
        for (const AcGePoint2d& p : unit) {
            const double minor = p.y * edge.axisRatio;
            outline.emplace_back(edge.center.x + p.x * axis.x - minor * axis.y,
                                 edge.center.y + p.x * axis.y + minor * axis.x);
        }
    }
    void operator()(const AcDbHatch::SplineEdge& edge) const {
        std::vector<AcGePoint3d> controlPoints;
        controlPoints.reserve(edge.controlPoints.size());
        for (const AcGePoint2d& p : edge.controlPoints) {
            controlPoints.emplace_back(p.x, p.y, 0.0);
        }
        for (const AcGePoint3d& p :
             ge::SampleNurb({edge.degree, edge.knots, controlPoints, edge.weights}, kChordError)) {
            outline.emplace_back(p.x, p.y);
        }
    }
};

/// Ascending places along y = level where outlines cross it.
std::vector<double> crossingsAt(double level, const std::vector<Outline>& outlines) {
    std::vector<double> places;
    for (const Outline& outline : outlines) {
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const AcGePoint2d& a = outline[i];
            const AcGePoint2d& b = outline[(i + 1) % outline.size()];
            const double x = a.x + (b.x - a.x) * (level - a.y) / (b.y - a.y);
            if ((a.y <= level) != (b.y <= level) && std::isfinite(x)) {
                places.push_back(x);
            }
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

AcGePoint2d turned(const AcGePoint2d& p, double cosine, double sine) {
    return {p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
}

/// Cuts the stretch from..to of a line by its dashes, which repeat from `phase` on.
template <class Emit>
void emitDashes(const std::vector<double>& dashes, double phase, double from, double to,
                const AcGiWorldDraw& context, const Emit& emit) {
    constexpr double kMostRepeats = 10'000.0;
    constexpr std::size_t kMostDashes = 64;
    double period = 0.0;
    for (const double dash : dashes) {
        period += std::abs(dash);
    }
    const double repeats = (to - from) / period;
    if (!(repeats <= kMostRepeats) || dashes.size() > kMostDashes) {
        emit(from, to);
        return;
    }
    double at = phase + std::floor((from - phase) / period) * period;
    for (int i = 0; i < repeats + 2.0 && at < to && !context.regenAbort(); ++i) {
        for (const double dash : dashes) {
            const double next = at + std::abs(dash);
            const double start = std::max(at, from);
            const double end = std::min(next, to);
            if (dash >= 0.0 && start <= end) {
                emit(start, end);
            }
            at = next;
        }
    }
}

}  // namespace

Outline OutlineOf(const AcDbHatch::Loop& loop) {
    Outline outline;
    for (const AcDbHatch::Edge& edge : loop.edges) {
        std::visit(EdgeAppender{outline}, edge);
    }
    for (std::size_t i = 0; i < loop.vertices.size(); ++i) {
        const AcDbHatch::PolylineVertex& from = loop.vertices[i];
        const AcDbHatch::PolylineVertex& to = loop.vertices[(i + 1) % loop.vertices.size()];
        outline.push_back(from.point);
        if (from.bulge != 0.0) {
            const BulgeArc arc(from.point, to.point, from.bulge);
            appendArc(outline, arc.center, arc.radius, arc.startAngle, arc.sweep);
        }
    }
    return outline;
}

Outline JoinOutlines(const std::vector<Outline>& outlines) {
    Outline joined;
    for (const Outline& outline : outlines) {
        if (!outline.empty()) {
            const AcGePoint2d seam = joined.empty() ? outline.front() : joined.front();
            joined.insert(joined.end(), outline.begin(), outline.end());
            joined.push_back(outline.front());
            joined.push_back(seam);
        }
    }
    return joined;
}

std::vector<Stroke> StrokesWithin(const AcDbHatch::PatternLine& family,
                                  const std::vector<Outline>& outlines,
                                  const AcGiWorldDraw& context) {
    constexpr double kMostLines = 20'000.0;
    constexpr std::size_t kMostStrokes = 100'000;
    constexpr std::size_t kPointsOfStep = 64;
    const double cosine = std::cos(family.angle);
    const double sine = std::sin(family.angle);
    const auto levelled = [&](const AcGePoint2d& p) { return turned(p, cosine, -sine); };

    std::vector<Outline> level = outlines;  // turned so that the family's lines lie level
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    std::size_t stepsOfLine = 1;
    for (Outline& outline : level) {
        stepsOfLine += outline.size() / kPointsOfStep;
        for (AcGePoint2d& p : outline) {
            p = levelled(p);
            lowest = std::min(lowest, p.y);
            highest = std::max(highest, p.y);
        }
    }
    const AcGePoint2d base = levelled(family.base);
    AcGePoint2d step = levelled(family.offset);
    if (step.y < 0.0) {
        step = {-step.x, -step.y};
    }
    std::vector<Stroke> strokes;
    const double lines = (highest - lowest) / step.y;
    if (!(step.y > 0.0) || !(lines <= kMostLines)) {
        return strokes;
    }
    const double first = std::ceil((lowest - base.y) / step.y);
    for (int i = 0; i <= lines; ++i) {
        for (std::size_t steps = 0; steps < stepsOfLine; ++steps) {
            if (context.regenAbort()) {
                return strokes;
            }
        }
        const double k = first + i;
        const double y = base.y + k * step.y;
        const std::vector<double> places = crossingsAt(y, level);
        for (std::size_t at = 0; at + 1 < places.size(); at += 2) {
            emitDashes(family.dashes, base.x + k * step.x, places[at], places[at + 1], context,
                       [&](double from, double to) {
                           strokes.push_back(
                               {turned({from, y}, cosine, sine), turned({to, y}, cosine, sine)});
                       });
            if (strokes.size() > kMostStrokes) {
                return {};
            }
        }
    }
    return strokes;
}

}  // namespace db
