#include "platform/ge/SegmentCrossings.h"

#include <limits>

namespace {

/// Two points closer than this are one.
constexpr double kSamePlace = 1e-9;
/// Units of the last place that computing a distance may be off by.
constexpr double kRounding = 8.0 * std::numeric_limits<double>::epsilon();

double PlaneDistance(const AcGePoint3d& a, const AcGePoint3d& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace

SegmentCrossings::SegmentCrossings(const AcGePoint3d& start, const AcGePoint3d& end,
                                   std::vector<AcGePoint3d>& points)
    : start_(start),
      length_(start.y == end.y ? std::abs(end.x - start.x) : PlaneDistance(start, end)),
      points_(points),
      alreadyThere_(points.size()) {
    direction_ = length_ > 0.0
                     ? AcGeVector3d((end.x - start.x) / length_, (end.y - start.y) / length_, 0.0)
                     : AcGeVector3d::kXAxis;
    normal_ = {-direction_.y, direction_.x, 0.0};
    rounding_ = kRounding * (std::abs(normal_.x * start.x) + std::abs(normal_.y * start.y));
    tolerance_ =
        AcGeTol::equalPoint + kRounding * (std::abs(start.x) + std::abs(start.y) + length_);
    if (start.y == end.y) {
        lowest_ = start.y - tolerance_;
        highest_ = start.y + tolerance_;
    }
}

void SegmentCrossings::walk(std::span<const SplineKnot> knots, std::span<const double> params) {
    bool entering = true;
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        if (isFarFrom(knots[i])) {
            settle();
            entering = true;
            continue;
        }
        const SplinePiece piece(knots[i], knots[i + 1], params[i + 1] - params[i]);
        walkPiece(piece, entering, i == 0);
        entering = false;
    }
    settle();
}

void SegmentCrossings::walkPiece(const SplinePiece& piece, bool entering, bool curveStart) {
    const CubicValues distance = piece.along(normal_, start_);
    const double second = distance.secondControl();
    const double third = distance.thirdControl();
    const double low = std::min(std::min(distance.first, distance.last), std::min(second, third));
    const double high = std::max(std::max(distance.first, distance.last), std::max(second, third));
    if (low >= -tolerance_ && high <= tolerance_) {
        pending_ = Pending::kNothing;
        reportLyingPiece(piece);
        previous_ = {1.0, distance.last, true};
        return;
    }
    if (entering) {
        enter(piece, nodeAt(distance, 0.0), curveStart);
    }
    previous_.u = 0.0;
    if (low <= tolerance_ && high >= -tolerance_) {
        for (const double turn : CubicTurns(distance)) {
            advance(piece, distance, nodeAt(distance, turn));
        }
    }
    advance(piece, distance, nodeAt(distance, 1.0));
}

SegmentCrossings::Node SegmentCrossings::nodeAt(const CubicValues& distance, double u) const {
    const double value = distance.at(u);
    const double rounding =
        rounding_ + kRounding * (std::abs(distance.first) + std::abs(distance.last));
    return {u, value, std::abs(value) <= rounding};
}

void SegmentCrossings::enter(const SplinePiece& piece, const Node& node, bool curveStart) {
    previous_ = node;
    if (node.onLine) {
        hold(piece, node, Pending::kOnLine);
    } else if (curveStart && std::abs(node.distance) <= tolerance_) {
        hold(piece, node, Pending::kTouch);
    }
}

void SegmentCrossings::advance(const SplinePiece& piece, const CubicValues& distance,
                               const Node& node) {
    const Node before = previous_;
    previous_ = node;
    const bool closer = std::abs(node.distance) < std::abs(before.distance);
    if (node.onLine) {
        if (pending_ != Pending::kOnLine || std::abs(node.distance) < pendingDistance_) {
            hold(piece, node, Pending::kOnLine);
        }
        return;
    }
    if (!before.onLine && (before.distance < 0.0) != (node.distance < 0.0)) {
        pending_ = Pending::kNothing;
        report(piece.at(CubicRootBetween(distance, before.u, node.u, before.distance < 0.0)));
        return;
    }
    if (pending_ == Pending::kTouch && closer) {
        pending_ = Pending::kNothing;
    }
    settle();
    if (!before.onLine && closer && std::abs(node.distance) <= tolerance_) {
        hold(piece, node, Pending::kTouch);
    }
}

void SegmentCrossings::hold(const SplinePiece& piece, const Node& node, Pending as) {
    pending_ = as;
    pendingDistance_ = std::abs(node.distance);
    pendingPoint_ = piece.at(node.u);
}

/// The piece runs along the segment's line: its ends, and the segment's ends where they are on it.
void SegmentCrossings::reportLyingPiece(const SplinePiece& piece) {
    std::vector<double> places{0.0, 1.0};
    for (const double target : {0.0, length_}) {
        CubicValues along = piece.along(direction_, start_);
        along.first -= target;
        along.last -= target;
        double from = 0.0;
        const auto lookUpTo = [&](double to) {
            if (along.at(from) * along.at(to) < 0.0) {
                places.push_back(CubicRootBetween(along, from, to, along.at(from) < 0.0));
            }
            from = to;
        };
        for (const double turn : CubicTurns(along)) {
            lookUpTo(turn);
        }
        lookUpTo(1.0);
    }
    std::sort(places.begin(), places.end());
    for (const double u : places) {
        report(piece.at(u));
    }
}

void SegmentCrossings::report(const AcGePoint3d& point) {
    const double along = direction_.x * (point.x - start_.x) + direction_.y * (point.y - start_.y);
    const bool onSegment = along >= -tolerance_ && along <= length_ + tolerance_;
    const bool sameAsLast =
        points_.size() > alreadyThere_ && PlaneDistance(points_.back(), point) <= kSamePlace;
    if (onSegment && !sameAsLast) {
        points_.push_back(point);
    }
}
