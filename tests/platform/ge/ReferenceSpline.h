#pragma once

#include <cmath>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

/// The same curve by another road: unknown slopes instead of second derivatives, a dense solve, all
/// in long double; crossings by looking at every small step and halving.
class ReferenceSpline {
public:
    explicit ReferenceSpline(const std::vector<AcGePoint3d>& points) {
        for (const AcGePoint3d& p : points) {
            x_.push_back(p.x);
            y_.push_back(p.y);
        }
        params_.push_back(0.0L);
        for (std::size_t i = 1; i < x_.size(); ++i) {
            params_.push_back(params_.back() + std::hypot(x_[i] - x_[i - 1], y_[i] - y_[i - 1]));
        }
        xSlopes_ = solveSlopes(x_);
        ySlopes_ = solveSlopes(y_);
    }

    struct Place {
        long double x;
        long double y;
    };

    std::size_t pieces() const { return x_.size() - 1; }
    long double param(std::size_t knot) const { return params_[knot]; }
    Place at(std::size_t piece, long double u) const {
        return {hermite(x_, xSlopes_, piece, u), hermite(y_, ySlopes_, piece, u)};
    }

    /// Where a x + b y = c along the curve.
    std::vector<Place> crossings(long double a, long double b, long double c) const {
        constexpr int kSteps = 4000;
        std::vector<Place> found;
        for (std::size_t piece = 0; piece < pieces(); ++piece) {
            const auto distance = [&](long double u) {
                const Place p = at(piece, u);
                return a * p.x + b * p.y - c;
            };
            for (int step = 0; step < kSteps; ++step) {
                const long double low = static_cast<long double>(step) / kSteps;
                const long double high = static_cast<long double>(step + 1) / kSteps;
                if ((distance(low) < 0) != (distance(high) < 0)) {
                    found.push_back(at(piece, halve(distance, low, high)));
                }
            }
        }
        return found;
    }

    /// Parameter of the top of a piece that rises at its first end and falls at its last.
    long double top(std::size_t piece) const {
        constexpr long double kNear = 1e-6L;
        const auto slope = [&](long double u) {
            return (at(piece, u + kNear).y - at(piece, u - kNear).y) / kNear;
        };
        return halve(slope, kNear, 1 - kNear);
    }
    /// The place of a level between two parameters of a piece.
    Place levelBetween(std::size_t piece, long double level, long double low,
                       long double high) const {
        return at(piece, halve([&](long double u) { return at(piece, u).y - level; }, low, high));
    }

private:
    template <class Function>
    static long double halve(const Function& function, long double low, long double high) {
        const bool below = function(low) < 0;
        for (int halving = 0; halving < 70; ++halving) {
            const long double middle = (low + high) / 2;
            ((function(middle) < 0) == below ? low : high) = middle;
        }
        return low;
    }

    using Numbers = std::vector<long double>;

    long double hermite(const Numbers& values, const Numbers& slopes, std::size_t i,
                        long double u) const {
        const long double h = params_[i + 1] - params_[i];
        const long double v = 1 - u;
        return values[i] * (1 + 2 * u) * v * v + slopes[i] * h * u * v * v +
               values[i + 1] * u * u * (3 - 2 * u) - slopes[i + 1] * h * u * u * v;
    }

    Numbers solveSlopes(const Numbers& values) const {
        const std::size_t n = values.size();
        std::vector<Numbers> rows(n, Numbers(n + 1, 0.0L));
        for (std::size_t i = 0; i < n; ++i) {
            for (const std::size_t piece : {i - 1, i}) {
                if (piece >= n - 1) {
                    continue;  // no piece before the first knot or after the last
                }
                const long double h = params_[piece + 1] - params_[piece];
                rows[i][i] += 2 / h;
                rows[i][piece == i ? i + 1 : i - 1] += 1 / h;
                rows[i][n] += 3 * (values[piece + 1] - values[piece]) / (h * h);
            }
        }
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t below = i + 1; below < n; ++below) {
                const long double factor = rows[below][i] / rows[i][i];
                for (std::size_t k = i; k <= n; ++k) {
                    rows[below][k] -= factor * rows[i][k];
                }
            }
        }
        Numbers slopes(n);
        for (std::size_t i = n; i-- > 0;) {
            long double rest = rows[i][n];
            for (std::size_t k = i + 1; k < n; ++k) {
                rest -= rows[i][k] * slopes[k];
            }
            slopes[i] = rest / rows[i][i];
        }
        return slopes;
    }

    Numbers x_;
    Numbers y_;
    Numbers params_;
    Numbers xSlopes_;
    Numbers ySlopes_;
};
