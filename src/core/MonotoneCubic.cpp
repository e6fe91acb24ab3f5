#include "src/core/MonotoneCubic.h"

#include <cmath>

namespace {

/// Nearer than this, drawing units, two points have the same x.
constexpr double kSameX = 1e-9;

/// Slope at the end of a piece from it and the next one, as far as the piece stays monotone.
double EndSlope(double width, double nextWidth, double secant, double nextSecant) {
    const double slope =
        ((2.0 * width + nextWidth) * secant - width * nextSecant) / (width + nextWidth);
    if (slope * secant <= 0.0) {
        return 0.0;
    }
    const bool bends = secant * nextSecant <= 0.0;
    return bends && std::abs(slope) > 3.0 * std::abs(secant) ? 3.0 * secant : slope;
}

}  // namespace

MonotoneCubic::MonotoneCubic(const std::vector<AcGePoint3d>& points)
    : points_(points), slopes_(points.size(), 0.0) {
    for (std::size_t first = 0; first < points_.size();) {
        std::size_t last = first;
        while (last + 1 < points_.size() && !IsUpright(last)) {
            ++last;
        }
        SetSlopes(first, last);
        first = last + 1;
    }
}

bool MonotoneCubic::IsUpright(std::size_t piece) const {
    return Width(piece) <= kSameX;
}

AcGePoint3d MonotoneCubic::Between(std::size_t piece, const AcGePoint3d& a,
                                   const AcGePoint3d& b) const {
    const double x = (a.x + b.x) / 2.0;
    return {x, IsUpright(piece) ? (a.y + b.y) / 2.0 : At(piece, x), 0.0};
}

void MonotoneCubic::SetSlopes(std::size_t first, std::size_t last) {
    if (last - first == 1) {
        slopes_[first] = slopes_[last] = Secant(first);
    }
    if (last - first < 2) {
        return;
    }
    for (std::size_t i = first + 1; i < last; ++i) {
        const double before = Secant(i - 1);
        const double after = Secant(i);
        if (before * after > 0.0) {
            const double w1 = 2.0 * Width(i) + Width(i - 1);
            const double w2 = Width(i) + 2.0 * Width(i - 1);
            slopes_[i] = (w1 + w2) / (w1 / before + w2 / after);
        }
    }
    slopes_[first] = EndSlope(Width(first), Width(first + 1), Secant(first), Secant(first + 1));
    slopes_[last] = EndSlope(Width(last - 1), Width(last - 2), Secant(last - 1), Secant(last - 2));
}

double MonotoneCubic::At(std::size_t piece, double x) const {
    const double h = Width(piece);
    const double u = (x - points_[piece].x) / h;
    const double v = 1.0 - u;
    return v * v * (1.0 + 2.0 * u) * points_[piece].y +
           u * u * (3.0 - 2.0 * u) * points_[piece + 1].y +
           h * u * v * (v * slopes_[piece] - u * slopes_[piece + 1]);
}
