#include "platform/ge/CubicValues.h"

#include <numbers>

namespace {

/// A turn this close to an end is the end: what the cubic does in between is far below rounding.
constexpr double kNextToEnd = 1e-9;

/// Roots of a u² + b u + c without cancellation; a root that does not exist is not a number.
std::array<double, 2> QuadraticRoots(double a, double b, double c) {
    const double root = std::sqrt(b * b - 4.0 * a * c);
    const double q = -0.5 * (b + std::copysign(root, b));
    return {q / a, c / q};
}

/// The closed form of a cubic with the leading coefficient 1. Of three roots that one is given
/// which lies on the same side of the two turns as `near`.
double MonicCubicRoot(double a, double b, double c, double near) {
    const double q = (a * a - 3.0 * b) / 9.0;
    const double r = (a * (2.0 * a * a - 9.0 * b) + 27.0 * c) / 54.0;
    const double discriminant = q * q * q - r * r;
    const double shift = -a / 3.0;
    if (discriminant <= 0.0) {
        const double s = -std::copysign(std::cbrt(std::abs(r) + std::sqrt(-discriminant)), r);
        return (s != 0.0 ? s + q / s : 0.0) + shift;
    }
    const double spread = std::sqrt(q);
    double turn = 0.0;  // the smallest root
    if (near > shift + spread) {
        turn = 2.0 * std::numbers::pi;
    } else if (near > shift - spread) {
        turn = -2.0 * std::numbers::pi;
    }
    const double angle = std::acos(std::clamp(r / (q * spread), -1.0, 1.0));
    return -2.0 * spread * std::cos((angle + turn) / 3.0) + shift;
}

double ClosedFormRoot(const CubicValues& cubic, double low, double high) {
    const double c3 = cubic.lastBend - cubic.firstBend;
    const double c2 = 3.0 * cubic.firstBend;
    const double c1 = cubic.slopeAtFirst();
    const double c0 = cubic.first;
    const double middle = 0.5 * (low + high);
    // Dividing by a leading coefficient that is all but absent would leave nothing but rounding.
    if (std::abs(c3) > 1e-7 * (std::abs(c2) + std::abs(c1))) {
        return MonicCubicRoot(c2 / c3, c1 / c3, c0 / c3, middle);
    }
    const std::array<double, 2> roots = QuadraticRoots(c2, c1, c0);
    const bool secondIsCloser = !(std::abs(roots[0] - middle) <= std::abs(roots[1] - middle));
    return roots[secondIsCloser ? 1 : 0];
}

}  // namespace

CubicTurns::CubicTurns(const CubicValues& cubic) {
    const double second = cubic.secondControl();
    const double third = cubic.thirdControl();
    const bool rises = cubic.first <= second && second <= third && third <= cubic.last;
    const bool falls = cubic.first >= second && second >= third && third >= cubic.last;
    if (rises || falls) {
        return;
    }
    auto roots = QuadraticRoots(3.0 * (cubic.lastBend - cubic.firstBend), 6.0 * cubic.firstBend,
                                cubic.slopeAtFirst());
    if (roots[1] < roots[0]) {
        std::swap(roots[0], roots[1]);
    }
    for (const double root : roots) {
        if (root > kNextToEnd && root < 1.0 - kNextToEnd) {
            places_[static_cast<std::size_t>(count_++)] = root;
        }
    }
}

double CubicRootBetween(const CubicValues& cubic, double low, double high, bool rises) {
    constexpr int kMostSteps = 64;    // halving alone is through by then
    constexpr double kStill = 1e-11;  // the error left goes with the square of the last step
    double u = ClosedFormRoot(cubic, low, high);
    if (!(u > low && u < high)) {
        u = 0.5 * (low + high);
    }
    for (int step = 0; step < kMostSteps; ++step) {
        const double value = cubic.at(u);
        ((value < 0.0) == rises ? low : high) = u;
        double next = u - value / cubic.slopeAt(u);
        if (!(next >= low && next <= high)) {
            next = 0.5 * (low + high);
        }
        const double moved = std::abs(next - u);
        u = next;
        if (moved <= kStill) {
            break;
        }
    }
    return u;
}
