#include "src/core/guarded_curve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "src/core/MonotoneCubic.h"
#include "src/core/curve_faults.h"
#include "src/core/curve_shape.h"
#include "src/core/number_format.h"

namespace {

/// Places are compared to this, drawing units.
constexpr double kNear = 1e-9;
/// What rounding may add to a diameter or take from it, mm.
constexpr double kRounding = 0.0005 + 1e-9;
/// A longer piece beside one that is divided is divided too: a spline keeps swinging where short
/// pieces meet long ones.
constexpr double kLongNeighbour = 1.5;
/// Far more than any grading takes, so that the work ends whatever the points are.
constexpr int kMostRounds = 40;
constexpr std::size_t kMostPoints = 500;

/// A place of the curve where one of its coordinates may turn, or a fit point.
struct Turn {
    double x;
    double y;
    std::size_t piece;  ///< that ends or goes on here, by its first fit point
};

/// One coordinate along a piece, by its values at the thirds.
class CubicThroughThirds {
public:
    CubicThroughThirds(double p0, double p1, double p2, double p3)
        : linear_((-11.0 * p0 + 18.0 * p1 - 9.0 * p2 + 2.0 * p3) / 2.0),
          square_(4.5 * (2.0 * p0 - 5.0 * p1 + 4.0 * p2 - p3)),
          cube_(4.5 * (-p0 + 3.0 * p1 - 3.0 * p2 + p3)) {}

    /// Adds where between 0 and 1 the derivative is 0.
    void AddTurns(std::vector<double>& turns) const {
        const double a = 3.0 * cube_;
        const double half = square_;
        const double discriminant = half * half - a * linear_;
        if (discriminant < 0.0) {
            return;
        }
        const double q = -(half + std::copysign(std::sqrt(discriminant), half));
        for (const double u : {q / a, linear_ / q}) {
            if (u > 0.0 && u < 1.0) {
                turns.push_back(u);
            }
        }
    }

private:
    double linear_, square_, cube_;
};

/// The curve through fit points, no two following ones alike, as its turns: between two of them
/// both coordinates go one way.
std::vector<Turn> TurnsOf(const AcGeCubicSplineCurve3d& curve) {
    const auto knots = curve.knots();
    std::vector<Turn> turns;
    std::vector<double> places;
    for (std::size_t piece = 0; piece + 1 < knots.size(); ++piece) {
        const double length = knots[piece + 1] - knots[piece];
        const auto at = [&](double u) { return curve.evalPoint(knots[piece] + u * length); };
        const AcGePoint3d p[] = {at(0.0), at(1.0 / 3.0), at(2.0 / 3.0), at(1.0)};
        places.assign(1, 0.0);
        CubicThroughThirds(p[0].x, p[1].x, p[2].x, p[3].x).AddTurns(places);
        CubicThroughThirds(p[0].y, p[1].y, p[2].y, p[3].y).AddTurns(places);
        std::sort(places.begin(), places.end());
        for (const double u : places) {
            const AcGePoint3d point = at(u);
            turns.push_back({point.x, point.y, piece});
        }
    }
    const AcGePoint3d last = curve.evalPoint(curve.endParam());
    turns.push_back({last.x, last.y, knots.size() - 2});
    return turns;
}

/// What a piece of the curve takes up.
struct Box {
    double left = std::numeric_limits<double>::infinity();
    double right = -left;
    double bottom = left;
    double top = -left;

    void Add(const Turn& turn) {
        left = std::min(left, turn.x);
        right = std::max(right, turn.x);
        bottom = std::min(bottom, turn.y);
        top = std::max(top, turn.y);
    }
};

/// Follows one coordinate that should not fall (times -1: not rise) and keeps how far it has gone
/// back from the farthest place so far.
struct Backtrack {
    double farthest = -std::numeric_limits<double>::infinity();
    std::size_t farthestPiece = 0;

    double Follow(double value, std::size_t piece) {
        if (value >= farthest) {
            farthest = value;
            farthestPiece = piece;
        }
        return farthest - value;
    }
};

/// A curve in work: fit points, of which some are measured and the others were added.
class GuardedCurve {
public:
    GuardedCurve(const std::vector<AcGePoint3d>& measured, const CurveGrid& grid)
        : grid_(grid), measured_(measured), shape_(measured_) {
        for (std::size_t i = 0; i < measured_.size(); ++i) {
            fits_.push_back({measured_[i], i, false});
        }
        top_ = grid.Top();
        bottom_ = grid.Bottom();
        for (const AcGePoint3d& point : measured_) {
            top_ = std::max(top_, point.y);
            bottom_ = std::min(bottom_, point.y);
        }
    }

    void Guard() {
        bool inOrder = IsInOrder();
        for (int round = 0; !inOrder && round < kMostRounds && fits_.size() < kMostPoints;
             ++round) {
            Divide();
            inOrder = IsInOrder();
        }
        if (inOrder) {
            LeaveOut();
        }
    }

    /// The points added between the measured point of that index and the next one.
    std::vector<AcGePoint3d> AddedAfter(std::size_t measured) const {
        std::vector<AcGePoint3d> added;
        for (const Fit& fit : fits_) {
            if (fit.added && fit.measured == measured) {
                added.push_back(fit.point);
            }
        }
        return added;
    }

private:
    struct Fit {
        AcGePoint3d point;
        std::size_t measured;  ///< the last measured point up to here
        bool added;
    };

    double Percent(double length) const { return length / grid_.gridHeight * 100.0; }

    void MakeCurve() {
        AcGePoint3dArray points;
        for (const Fit& fit : fits_) {
            points.append(fit.point);
        }
        curve_ = CurveThrough(points);
    }

    /// Whether the piece belongs to a pair of measured points of which the finer is higher.
    bool ShouldRise(std::size_t piece) const {
        const std::size_t i = fits_[piece].measured;
        return measured_[i + 1].y > measured_[i].y;
    }

    void Mark(std::size_t first, std::size_t last) {
        for (std::size_t piece = first; piece <= last; ++piece) {
            marked_[piece] = true;
        }
    }

    /// Makes the curve and marks the pieces where it does what it must not.
    void Measure() {
        MakeCurve();
        marked_.assign(fits_.size(), false);
        Backtrack along;
        Backtrack down;
        bool rising = false;
        const std::vector<Turn> turns = TurnsOf(curve_);
        MakeBoxes(turns);
        for (std::size_t i = 0; i < turns.size(); ++i) {
            const Turn& turn = turns[i];
            if (ShouldRise(turn.piece) != rising) {
                rising = !rising;
                down = {};
                down.Follow((rising ? 1.0 : -1.0) * turns[i > 0 ? i - 1 : 0].y, turn.piece);
            }
            if (along.Follow(turn.x, turn.piece) >= kToleratedRunBack) {
                Mark(along.farthestPiece, turn.piece);
            }
            const double ahead = (rising ? 1.0 : -1.0) * turn.y;
            if (Percent(down.Follow(ahead, turn.piece)) >= kToleratedPercent) {
                Mark(down.farthestPiece, turn.piece);
            }
            if (Percent(std::max(turn.y - top_, bottom_ - turn.y)) >= kToleratedPercent) {
                Mark(turn.piece, turn.piece);
            }
        }
    }

    void MakeBoxes(const std::vector<Turn>& turns) {
        boxes_.assign(fits_.size(), {});
        for (std::size_t i = 0; i + 1 < turns.size(); ++i) {
            boxes_[turns[i].piece].Add(turns[i]);
            boxes_[turns[i].piece].Add(turns[i + 1]);
        }
    }

    bool IsInOrder() {
        Measure();
        if (std::find(marked_.begin(), marked_.end(), true) == marked_.end()) {
            CheckDiameters();
        }
        return std::find(marked_.begin(), marked_.end(), true) == marked_.end();
    }

    /// Marks the pieces that give a diameter which is not where it was measured, or out of order.
    void CheckDiameters() {
        std::vector<AcGePoint3d> crossings;
        std::optional<AcGePoint3d> coarser;
        for (const int index : {kD95, kD90, kD85, kD60, kD50, kD30, kD15, kD10}) {
            const double y = grid_.YOfLevel(kDiameterLevels[static_cast<std::size_t>(index)]);
            crossings.clear();
            curve_.intersectWith({grid_.Left(), y, 0.0}, {grid_.Right(), y, 0.0}, crossings);
            if (crossings.empty()) {
                continue;  // at or beyond an end of the curve, or outside the grid
            }
            // The first counts, but all that come too early are mended together.
            for (const AcGePoint3d& crossing : crossings) {
                if (IsWhereMeasured(crossing)) {
                    break;
                }
                MarkAround(crossing);
            }
            const AcGePoint3d& first = crossings.front();
            if (coarser && Diameter(first) > Diameter(*coarser)) {
                MarkAround(first);
                MarkAround(*coarser);
            }
            coarser = first;
        }
    }

    /// As it is read off the curve there.
    double Diameter(const AcGePoint3d& point) const {
        return RoundAsPrinted(grid_.SizeOfX(point.x), 3);
    }

    void MarkAround(const AcGePoint3d& point) {
        for (std::size_t piece = 0; piece + 1 < fits_.size(); ++piece) {
            const Box& box = boxes_[piece];
            marked_[piece] =
                marked_[piece] || (point.x >= box.left - kNear && point.x <= box.right + kNear &&
                                   point.y >= box.bottom - kNear && point.y <= box.top + kNear);
        }
    }

    /// Whether the diameter lies between the sizes measured around its level, but for its rounding.
    bool IsWhereMeasured(const AcGePoint3d& crossing) const {
        const auto below = std::find_if(
            measured_.begin(), measured_.end(),
            [&](const AcGePoint3d& point) { return point.y <= crossing.y + AcGeTol::equalPoint; });
        if (below == measured_.end()) {
            return false;
        }
        if (below == measured_.begin()) {
            return crossing.y - below->y <= AcGeTol::equalPoint;
        }
        const double diameter = Diameter(crossing);
        return diameter <= grid_.SizeOfX((below - 1)->x) + kRounding &&
               diameter >= grid_.SizeOfX(below->x) - kRounding;
    }

    double Chord(std::size_t piece) const {
        return fits_[piece].point.distanceTo(fits_[piece + 1].point);
    }

    void Divide() {
        std::vector<bool> divided = marked_;
        for (std::size_t piece = 0; piece + 1 < fits_.size(); ++piece) {
            if (!marked_[piece]) {
                continue;
            }
            const double length = kLongNeighbour * Chord(piece);
            if (piece > 0 && Chord(piece - 1) > length) {
                divided[piece - 1] = true;
            }
            if (piece + 2 < fits_.size() && Chord(piece + 1) > length) {
                divided[piece + 1] = true;
            }
        }
        for (std::size_t piece = fits_.size() - 1; piece-- > 0;) {
            if (divided[piece]) {
                const std::size_t measured = fits_[piece].measured;
                const AcGePoint3d between =
                    shape_.Between(measured, fits_[piece].point, fits_[piece + 1].point);
                fits_.insert(fits_.begin() + static_cast<std::ptrdiff_t>(piece) + 1,
                             {between, measured, true});
            }
        }
    }

    /// Takes out every point without which the curve is in order as well.
    void LeaveOut() {
        for (bool changed = true; changed;) {
            changed = false;
            for (std::size_t i = fits_.size(); i-- > 0;) {
                if (!fits_[i].added) {
                    continue;
                }
                const Fit fit = fits_[i];
                fits_.erase(fits_.begin() + static_cast<std::ptrdiff_t>(i));
                if (IsInOrder()) {
                    changed = true;
                } else {
                    fits_.insert(fits_.begin() + static_cast<std::ptrdiff_t>(i), fit);
                }
            }
        }
    }

    const CurveGrid& grid_;
    const std::vector<AcGePoint3d>& measured_;
    MonotoneCubic shape_;
    std::vector<Fit> fits_;
    double top_;
    double bottom_;
    AcGeCubicSplineCurve3d curve_;
    std::vector<bool> marked_;  ///< pieces beyond the bounds
    std::vector<Box> boxes_;    ///< of the pieces
};

/// The points without those that repeat the one before, as the curve takes them.
std::vector<AcGePoint3d> Distinct(const AcGePoint3dArray& points) {
    std::vector<AcGePoint3d> distinct;
    for (const AcGePoint3d& point : points) {
        if (distinct.empty() || !point.isEqualTo(distinct.back())) {
            distinct.push_back(point);
        }
    }
    return distinct;
}

bool IsDrawn(const AcGePoint3dArray& points) {
    const AcGeCubicSplineCurve3d curve = CurveThrough(points);
    return curve.isValid() && std::isfinite(curve.endParam());
}

}  // namespace

AcGePoint3dArray GuardedPoints(const AcGePoint3dArray& measured, const CurveGrid& grid) {
    if (!IsDrawn(measured)) {
        return measured;
    }
    const std::vector<AcGePoint3d> distinct = Distinct(measured);
    GuardedCurve curve(distinct, grid);
    curve.Guard();
    AcGePoint3dArray points;
    std::size_t index = 0;
    for (int i = 0; i < measured.length(); ++i) {
        points.append(measured[i]);
        const bool repeated = i + 1 < measured.length() && measured[i + 1].isEqualTo(measured[i]);
        if (!repeated) {
            for (const AcGePoint3d& added : curve.AddedAfter(index++)) {
                points.append(added);
            }
        }
    }
    return points;
}
