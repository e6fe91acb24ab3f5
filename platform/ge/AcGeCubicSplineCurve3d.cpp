#include "platform/ge/AcGeCubicSplineCurve3d.h"

#include <algorithm>
#include <cmath>

#include "platform/ge/SegmentCrossings.h"

AcGeCubicSplineCurve3d::AcGeCubicSplineCurve3d(std::span<const AcGePoint3d> fitPoints) {
    addDistinctPoints(fitPoints);
    if (isValid()) {
        solveSecondDerivatives();
        boundPieces();
    }
}

void AcGeCubicSplineCurve3d::addDistinctPoints(std::span<const AcGePoint3d> fitPoints) {
    knots_.reserve(fitPoints.size());
    nodes_.reserve(fitPoints.size());
    double param = 0.0;
    for (const AcGePoint3d& point : fitPoints) {
        if (!nodes_.empty()) {
            const double chord = nodes_.back().point.distanceTo(point);
            if (chord <= AcGeTol::equalPoint) {
                continue;
            }
            param += chord;
        }
        knots_.push_back(param);
        nodes_.push_back({point, {}, 0.0, 0.0});
    }
}

// The condition that first derivatives agree at the inner knots is a system of one equation a knot,
// each with its two neighbours: elimination forwards, substitution backwards. The eliminated factor
// of a knot waits in lowestY, which has no value yet.
void AcGeCubicSplineCurve3d::solveSecondDerivatives() {
    const std::size_t last = nodes_.size() - 1;
    double length = knots_[1];
    AcGeVector3d slope = (nodes_[1].point - nodes_[0].point) * (1.0 / length);
    for (std::size_t i = 1; i < last; ++i) {
        const double nextLength = knots_[i + 1] - knots_[i];
        const AcGeVector3d nextSlope = (nodes_[i + 1].point - nodes_[i].point) * (1.0 / nextLength);
        const SplineKnot& before = nodes_[i - 1];
        const double scale = 1.0 / (2.0 * (length + nextLength) - length * before.lowestY);
        nodes_[i].secondDerivative =
            ((nextSlope - slope) * 6.0 - before.secondDerivative * length) * scale;
        nodes_[i].lowestY = nextLength * scale;
        length = nextLength;
        slope = nextSlope;
    }
    for (std::size_t i = last - 1; i > 0; --i) {
        const AcGeVector3d& after = nodes_[i + 1].secondDerivative;
        nodes_[i].secondDerivative = nodes_[i].secondDerivative - after * nodes_[i].lowestY;
    }
}

void AcGeCubicSplineCurve3d::boundPieces() {
    for (std::size_t i = 0; i + 1 < nodes_.size(); ++i) {
        const SplinePiece piece(nodes_[i], nodes_[i + 1], knots_[i + 1] - knots_[i]);
        const CubicValues y = piece.coordinate(&AcGePoint3d::y, &AcGeVector3d::y);
        const double second = y.secondControl();
        const double third = y.thirdControl();
        nodes_[i].lowestY = std::min(std::min(y.first, y.last), std::min(second, third));
        nodes_[i].highestY = std::max(std::max(y.first, y.last), std::max(second, third));
    }
}

AcGePoint3d AcGeCubicSplineCurve3d::evalPoint(double param) const {
    const auto after = std::upper_bound(knots_.begin() + 1, knots_.end() - 1, param);
    const auto i = static_cast<std::size_t>(after - knots_.begin()) - 1;
    const double length = knots_[i + 1] - knots_[i];
    const double u = std::clamp((param - knots_[i]) / length, 0.0, 1.0);
    return SplinePiece(nodes_[i], nodes_[i + 1], length).at(u);
}

std::vector<AcGePoint3d> AcGeCubicSplineCurve3d::samplePoints(double maxChordError) const {
    constexpr double kMostChords = 200'000.0;
    std::vector<AcGePoint3d> points;
    if (!isValid()) {
        return points;
    }
    const double mostOfPiece = std::max(1.0, kMostChords / static_cast<double>(nodes_.size()));
    points.push_back(nodes_.front().point);
    for (std::size_t i = 0; i + 1 < nodes_.size(); ++i) {
        const SplinePiece piece(nodes_[i], nodes_[i + 1], knots_[i + 1] - knots_[i]);
        // A chord over du is off by at most a eighth of du² times the second derivative.
        const double wanted = std::ceil(std::sqrt(0.75 * piece.greatestBend() / maxChordError));
        const int chords = static_cast<int>(std::min(std::max(1.0, wanted), mostOfPiece));
        for (int k = 1; k < chords; ++k) {
            points.push_back(piece.at(static_cast<double>(k) / chords));
        }
        points.push_back(piece.lastPoint());
    }
    return points;
}

void AcGeCubicSplineCurve3d::intersectWith(const AcGePoint3d& start, const AcGePoint3d& end,
                                           std::vector<AcGePoint3d>& points) const {
    const bool finite = std::isfinite(start.x) && std::isfinite(start.y) && std::isfinite(end.x) &&
                        std::isfinite(end.y) && std::isfinite(endParam());
    if (finite && isValid()) {
        SegmentCrossings(start, end, points).walk(nodes_, knots_);
    }
}
