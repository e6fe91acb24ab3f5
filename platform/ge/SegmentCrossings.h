#pragma once

#include <limits>
#include <span>
#include <vector>

#include "platform/ge/SplinePiece.h"

/// Finds where a spline meets one segment, walking once along the spline. The walk goes from node
/// to node: the knots and the places between them where the distance from the segment's line turns.
/// Between two nodes the distance is monotone, so it has one root or none, and what happens at a
/// node is known once the next one is seen.
class SegmentCrossings {
public:
    SegmentCrossings(const AcGePoint3d& start, const AcGePoint3d& end,
                     std::vector<AcGePoint3d>& points);

    /// Appends the meeting points in order along the curve.
    void walk(std::span<const SplineKnot> knots, std::span<const double> params);

private:
    struct Node {
        double u = 0.0;
        double distance = 0.0;  // from the segment's line, with its sign
        bool onLine = false;    // the distance is nothing but rounding
    };
    /// What is to be reported unless the next node shows otherwise.
    enum class Pending { kNothing, kOnLine, kTouch };

    /// True when the piece that starts at the knot is known not to meet the segment.
    bool isFarFrom(const SplineKnot& knot) const {
        return knot.lowestY > highest_ || knot.highestY < lowest_;
    }
    void walkPiece(const SplinePiece& piece, bool entering, bool curveStart);
    void enter(const SplinePiece& piece, const Node& node, bool curveStart);
    void advance(const SplinePiece& piece, const CubicValues& distance, const Node& node);
    void hold(const SplinePiece& piece, const Node& node, Pending as);
    void settle() {
        if (pending_ != Pending::kNothing) {
            report(pendingPoint_);
            pending_ = Pending::kNothing;
        }
    }
    void reportLyingPiece(const SplinePiece& piece);
    void report(const AcGePoint3d& point);
    Node nodeAt(const CubicValues& distance, double u) const;

    AcGePoint3d start_;
    AcGeVector3d direction_;
    AcGeVector3d normal_;
    double length_;
    double rounding_;   // of a distance from the line, at the segment's own coordinates
    double tolerance_;  // within which a point is on the segment
    double lowest_ = -std::numeric_limits<double>::infinity();  // y of what a level segment meets
    double highest_ = std::numeric_limits<double>::infinity();

    Node previous_;
    Pending pending_ = Pending::kNothing;
    double pendingDistance_ = 0.0;
    AcGePoint3d pendingPoint_;
    std::vector<AcGePoint3d>& points_;
    std::size_t alreadyThere_;
};
