#pragma once

#include <span>
#include <vector>

#include "platform/ge/AcGePoint3d.h"
#include "platform/ge/SplinePiece.h"

/// C2 cubic through fit points: chord-length parameters, zero second derivative at both ends.
/// Consecutive fit points closer than AcGeTol::equalPoint count once. Two distinct points give the
/// straight segment; fewer give an empty curve.
class AcGeCubicSplineCurve3d {
public:
    AcGeCubicSplineCurve3d() = default;
    explicit AcGeCubicSplineCurve3d(std::span<const AcGePoint3d> fitPoints);

    /// False when fewer than two distinct fit points were given.
    bool isValid() const { return knots_.size() >= 2; }
    /// Parameters of the fit points: 0 at the first, growing by the chord lengths.
    std::span<const double> knots() const { return knots_; }
    double endParam() const { return knots_.empty() ? 0.0 : knots_.back(); }
    /// The point at a parameter, clamped to [0, endParam]. Needs a valid curve.
    AcGePoint3d evalPoint(double param) const;

    /// Where the curve meets the segment from `start` to `end` (both ends belong to it), in order
    /// along the curve, each place once, appended to `points`. Exact to 1e-9 drawing units: roots
    /// of each cubic piece in closed form, polished. An end or a touching place within
    /// AcGeTol::equalPoint of the segment is on it. Only x and y are looked at, the curve's z being
    /// that of the segment's plane. Where a whole piece lies on the segment, its two ends are
    /// reported, and where a part of one does, the ends of that part. Coordinates that are not
    /// finite meet nothing.
    void intersectWith(const AcGePoint3d& start, const AcGePoint3d& end,
                       std::vector<AcGePoint3d>& points) const;

    /// A polyline along the curve, no chord further from it than `maxChordError` drawing units
    /// (above 0); every fit point is one of its vertices. A curve so wild that it would need more
    /// than 200,000 chords gets about that many. Empty for a curve that is not valid.
    std::vector<AcGePoint3d> samplePoints(double maxChordError) const;

private:
    void addDistinctPoints(std::span<const AcGePoint3d> fitPoints);
    void solveSecondDerivatives();
    void boundPieces();

    std::vector<double> knots_;
    std::vector<SplineKnot> nodes_;  // same length
};
