#include "src/core/curve_faults.h"

namespace {

constexpr double kChordError = 0.005;  // drawing units, a tenth of what is tolerated

/// The furthest that one coordinate falls behind the furthest place it had been at.
class Setback {
public:
    /// `ahead` grows where the curve goes as it should.
    void Visit(double ahead, const AcGePoint3d& point) {
        if (!begun_ || ahead > furthest_) {
            begun_ = true;
            furthest_ = ahead;
            turn_ = point;
        }
        if (furthest_ - ahead > amount) {
            amount = furthest_ - ahead;
            from = turn_;
            to = point;
        }
    }

    double amount = 0.0;
    AcGePoint3d from;
    AcGePoint3d to;

private:
    bool begun_ = false;
    double furthest_ = 0.0;
    AcGePoint3d turn_;
};

/// The furthest that the curve goes past an edge of the grid.
class Overshoot {
public:
    void Visit(double beyond, const AcGePoint3d& point) {
        if (beyond > amount) {
            from = outside_ ? from : point;
            amount = beyond;
            to = point;
        }
        outside_ = beyond > 0.0;
    }

    double amount = 0.0;
    AcGePoint3d from;
    AcGePoint3d to;

private:
    bool outside_ = false;
};

}  // namespace

std::vector<CurveFault> FindCurveFaults(const AcGeCubicSplineCurve3d& curve,
                                        const CurveGrid& grid) {
    using Kind = CurveFault::Kind;
    Setback back;
    Setback rise;
    Overshoot above;
    Overshoot below;
    for (const AcGePoint3d& point : curve.samplePoints(kChordError)) {
        back.Visit(point.x, point);
        rise.Visit(-point.y, point);
        above.Visit(point.y - grid.Top(), point);
        below.Visit(grid.Bottom() - point.y, point);
    }
    std::vector<CurveFault> faults;
    const auto add = [&](Kind kind, const auto& found, double amount, double tolerated) {
        if (amount > tolerated) {
            faults.push_back({kind, grid.SizeOfX(found.from.x), grid.SizeOfX(found.to.x), amount});
        }
    };
    const double percent = 100.0 / grid.gridHeight;
    add(Kind::kRunsBack, back, back.amount, kToleratedRunBack);
    add(Kind::kRises, rise, rise.amount * percent, kToleratedPercent);
    add(Kind::kAboveAll, above, above.amount * percent, kToleratedPercent);
    add(Kind::kBelowNone, below, below.amount * percent, kToleratedPercent);
    return faults;
}
