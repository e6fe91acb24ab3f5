#include "host/picture/WideLineRun.h"

#include <cmath>
#include <utility>

namespace picture {

namespace {

/// Beyond this many half widths the point of a mitre is cut off, as on a print's sharp corners.
constexpr double kMitreLimit = 4.0;

double Cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}

/// To the left of the direction, of length 1.
Point LeftOf(const WideLineRun::Segment& segment) {
    const Point along = segment.end - segment.start;
    const double length = std::hypot(along.x, along.y);
    return {-along.y / length, along.x / length};
}

/// An edge of a segment: `side` 1 the left one, -1 the right one.
struct Edge {
    Edge(const WideLineRun::Segment& segment, double side) {
        const Point across = LeftOf(segment) * (side * 0.5);
        start = segment.start + across * segment.startWidth;
        end = segment.end + across * segment.endWidth;
    }
    Point start;
    Point end;
};

/// Appends where two edges meet; both ends when that is far off or nowhere.
void AppendJoint(std::vector<Point>& outline, const WideLineRun::Segment& from,
                 const WideLineRun::Segment& to, double side) {
    const Edge before(from, side);
    const Edge after(to, side);
    const Point a = before.end - before.start;
    const Point b = after.end - after.start;
    const double cross = Cross(a, b);
    constexpr double kParallel = 1e-9;
    if (std::abs(cross) > kParallel * std::hypot(a.x, a.y) * std::hypot(b.x, b.y)) {
        const Point meeting = before.start + a * (Cross(after.start - before.start, b) / cross);
        const Point reach = meeting - to.start;
        if (std::hypot(reach.x, reach.y) <= kMitreLimit * 0.5 * to.startWidth) {
            outline.push_back(meeting);
            return;
        }
    }
    outline.push_back(before.end);
    outline.push_back(after.start);
}

std::vector<Point> SideOf(const std::vector<WideLineRun::Segment>& segments, double side,
                          bool closed) {
    std::vector<Point> points;
    if (closed) {
        AppendJoint(points, segments.back(), segments.front(), side);
    } else {
        points.push_back(Edge(segments.front(), side).start);
    }
    for (std::size_t i = 1; i < segments.size(); ++i) {
        AppendJoint(points, segments[i - 1], segments[i], side);
    }
    points.push_back(closed ? points.front() : Edge(segments.back(), side).end);
    return points;
}

}  // namespace

bool WideLineRun::continues(const Segment& segment) const {
    return segments_.empty() || (segments_.back().end == segment.start &&
                                 segments_.back().endWidth == segment.startWidth);
}

void WideLineRun::add(const Segment& segment) {
    if (segment.start != segment.end) {
        segments_.push_back(segment);
    }
}

std::vector<Point> WideLineRun::take() {
    const std::vector<Segment> segments = std::exchange(segments_, {});
    if (segments.empty()) {
        return {};
    }
    const bool closed = segments.size() > 2 && segments.back().end == segments.front().start &&
                        segments.back().endWidth == segments.front().startWidth;
    std::vector<Point> outline = SideOf(segments, 1.0, closed);
    const std::vector<Point> right = SideOf(segments, -1.0, closed);
    outline.insert(outline.end(), right.rbegin(), right.rend());
    return outline;
}

}  // namespace picture
