#include "host/picture/LinePen.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace picture {

namespace {

bool TurnsSharply(Point before, Point at, Point after) {
    constexpr double kCosine = 0.85;  // beyond it are the corners, below the chords of curves
    const Point in = at - before;
    const Point out = after - at;
    return in.x * out.x + in.y * out.y <
           kCosine * std::hypot(in.x, in.y) * std::hypot(out.x, out.y);
}

}  // namespace

void LinePen::drawPolyline(std::span<const Point> points) {
    if (pattern == nullptr) {
        list_.addPolyline(points, colorIndex, lineWeight);
        return;
    }
    std::size_t start = 0;
    for (std::size_t i = 1; i < points.size() && !isFull(); ++i) {
        if (i + 1 == points.size() || TurnsSharply(points[i - 1], points[i], points[i + 1])) {
            drawCourse(points.subspan(start, i + 1 - start));
            start = i;
        }
    }
}

void LinePen::drawCourse(std::span<const Point> points) {
    lengths_.assign(1, 0.0);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const Point step = points[i] - points[i - 1];
        lengths_.push_back(lengths_.back() + std::hypot(step.x, step.y));
    }
    const bool closed = points.size() > 2 && points.front() == points.back();
    const std::vector<LinePattern::Dash> dashes = dashesAlong(lengths_.back(), closed);
    if (dashes.empty()) {
        list_.addPolyline(points, colorIndex, lineWeight);
        return;
    }
    std::size_t next = 1;  // the point behind the place that was reached
    const auto reach = [&](double length) {
        while (next + 1 < points.size() && lengths_[next] <= length) {
            ++next;
        }
        const double span = lengths_[next] - lengths_[next - 1];
        const double part = span > 0.0 ? std::min((length - lengths_[next - 1]) / span, 1.0) : 0.0;
        return points[next - 1] + (points[next] - points[next - 1]) * part;
    };
    for (const LinePattern::Dash& dash : dashes) {
        dash_.assign(1, reach(dash.from));
        const std::size_t first = next;
        const Point end = reach(dash.to);
        dash_.insert(dash_.end(), points.begin() + static_cast<std::ptrdiff_t>(first),
                     points.begin() + static_cast<std::ptrdiff_t>(next));
        dash_.push_back(end);
        list_.addPolyline(dash_, colorIndex, lineWeight);
    }
}

void LinePen::drawArc(const Arc& arc) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    if (isFull()) {
        return;
    }
    const double length = arc.radius * std::abs(arc.sweepAngle);
    const std::vector<LinePattern::Dash> dashes =
        dashesAlong(length, std::abs(arc.sweepAngle) >= kTurn);
    if (dashes.empty()) {
        list_.addArc(arc, colorIndex, lineWeight);
    }
    for (const LinePattern::Dash& dash : dashes) {
        if (dash.from == dash.to) {
            const double angle = arc.startAngle + arc.sweepAngle * dash.from / length;
            const Point dot = arc.center + Point{std::cos(angle), std::sin(angle)} * arc.radius;
            const Point ends[] = {dot, dot};
            list_.addPolyline(ends, colorIndex, lineWeight);
            continue;
        }
        list_.addArc({arc.center, arc.radius, arc.startAngle + arc.sweepAngle * dash.from / length,
                      arc.sweepAngle * (dash.to - dash.from) / length},
                     colorIndex, lineWeight);
    }
}

std::vector<WideLineRun::Segment> LinePen::dashesOf(const WideLineRun::Segment& segment) const {
    const Point course = segment.end - segment.start;
    const double length = std::hypot(course.x, course.y);
    const double widening = segment.endWidth - segment.startWidth;
    std::vector<WideLineRun::Segment> parts;
    if (isFull()) {
        return parts;
    }
    for (const LinePattern::Dash& dash : dashesAlong(length, false)) {
        const double from = dash.from / length;
        const double to = dash.to / length;
        parts.push_back({segment.start + course * from, segment.start + course * to,
                         segment.startWidth + widening * from, segment.startWidth + widening * to});
    }
    if (parts.empty()) {
        parts.push_back(segment);
    }
    return parts;
}

}  // namespace picture
