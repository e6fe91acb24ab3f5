#pragma once

#include <algorithm>
#include <array>
#include <cmath>

/// A cubic over u from 0 to 1 by its values at both ends and a sixth of its second derivatives
/// there. In this form the ends are exact.
struct CubicValues {
    double first = 0.0;
    double last = 0.0;
    double firstBend = 0.0;
    double lastBend = 0.0;

    double at(double u) const {
        const double v = 1.0 - u;
        return v * first + u * last - u * v * ((1.0 + v) * firstBend + (1.0 + u) * lastBend);
    }
    double slopeAt(double u) const {
        return slopeAtFirst() + 3.0 * u * (2.0 * firstBend + u * (lastBend - firstBend));
    }
    double slopeAtFirst() const { return last - first - 2.0 * firstBend - lastBend; }
    double slopeAtLast() const { return last - first + firstBend + 2.0 * lastBend; }
    /// The two inner control values of the Bézier form; with the ends they bound the cubic.
    double secondControl() const { return first + slopeAtFirst() / 3.0; }
    double thirdControl() const { return last - slopeAtLast() / 3.0; }
};

/// Places strictly between 0 and 1 where a cubic turns, ascending.
class CubicTurns {
public:
    explicit CubicTurns(const CubicValues& cubic);
    const double* begin() const { return places_.data(); }
    const double* end() const { return places_.data() + count_; }

private:
    std::array<double, 2> places_{};
    int count_ = 0;
};

/// The root of the cubic between `low` and `high`, over which it is monotone and changes its sign
/// (`rises`: from below 0 to above): the closed form's root that belongs there, then Newton's steps
/// kept between the two.
double CubicRootBetween(const CubicValues& cubic, double low, double high, bool rises);
