#include "platform/ge/nurb_sampling.h"

#include <array>

namespace ge {

namespace {

constexpr int kHighestDegree = 25;

/// A point times its weight, and the weight.
struct Weighted {
    double x, y, z, w;
};

Weighted mix(const Weighted& a, const Weighted& b, double t) {
    const double s = 1.0 - t;
    return {s * a.x + t * b.x, s * a.y + t * b.y, s * a.z + t * b.z, s * a.w + t * b.w};
}

bool isConsistent(const Nurb& nurb) {
    const std::size_t points = nurb.controlPoints.size();
    return nurb.degree >= 1 && nurb.degree <= kHighestDegree &&
           points > static_cast<std::size_t>(nurb.degree) &&
           nurb.knots.size() == points + static_cast<std::size_t>(nurb.degree) + 1 &&
           (nurb.weights.empty() || nurb.weights.size() == points);
}

/// The curve over the knot span that ends behind knot `span`, by repeated mixing of neighbours.
AcGePoint3d evaluate(const Nurb& nurb, std::size_t span, double t) {
    const auto degree = static_cast<std::size_t>(nurb.degree);
    std::array<Weighted, kHighestDegree + 1> points{};
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const AcGePoint3d& p = nurb.controlPoints[at];
        const double w = nurb.weights.empty() ? 1.0 : nurb.weights[at];
        points[i] = {p.x * w, p.y * w, p.z * w, w};
    }
    for (std::size_t level = 1; level <= degree; ++level) {
        for (std::size_t i = degree; i >= level; --i) {
            const double from = nurb.knots[span - degree + i];
            const double to = nurb.knots[span + 1 + i - level];
            points[i] = mix(points[i - 1], points[i], to > from ? (t - from) / (to - from) : 0.0);
        }
    }
    const Weighted& p = points[degree];
    return p.w != 0.0 ? AcGePoint3d(p.x / p.w, p.y / p.w, p.z / p.w) : AcGePoint3d(p.x, p.y, p.z);
}

/// Halves a stretch of one knot span until its chords are close enough.
class SpanSampling {
public:
    SpanSampling(const Nurb& nurb, std::size_t span, double maxChordError,
                 std::vector<AcGePoint3d>& points)
        : nurb_(nurb), span_(span), maxChordError_(maxChordError), points_(points) {}

    /// Appends what lies between `from` and `to`, and the place of `to`.
    void sample(double from, double to, int halvingsLeft) {
        const AcGePoint3d start = points_.back();
        const AcGePoint3d end = evaluate(nurb_, span_, to);
        if (halvingsLeft == 0 || isFlat(from, to, start, end)) {
            points_.push_back(end);
            return;
        }
        const double middle = 0.5 * (from + to);
        sample(from, middle, halvingsLeft - 1);
        sample(middle, to, halvingsLeft - 1);
    }

private:
    bool isFlat(double from, double to, const AcGePoint3d& start, const AcGePoint3d& end) const {
        const AcGeVector3d chord = (end - start).normal();
        for (const double share : {0.25, 0.5, 0.75}) {
            const AcGeVector3d offset = evaluate(nurb_, span_, from + share * (to - from)) - start;
            if ((offset - chord * chord.dotProduct(offset)).length() > maxChordError_) {
                return false;
            }
        }
        return true;
    }

    const Nurb& nurb_;
    std::size_t span_;
    double maxChordError_;
    std::vector<AcGePoint3d>& points_;
};

/// Coordinates that no chord comes near would else make many points of every piece.
int mostHalvingsOf(std::size_t pieces) {
    constexpr int kMostHalvings = 10;
    constexpr std::size_t kMostPoints = 200'000;
    int halvings = 0;
    while (halvings < kMostHalvings && (pieces << (halvings + 2)) <= kMostPoints) {
        ++halvings;
    }
    return halvings;
}

}  // namespace

std::vector<AcGePoint3d> SampleNurb(const Nurb& nurb, double maxChordError) {
    std::vector<AcGePoint3d> points;
    if (!isConsistent(nurb)) {
        return points;
    }
    const int mostHalvings = mostHalvingsOf(nurb.controlPoints.size());
    for (auto span = static_cast<std::size_t>(nurb.degree); span < nurb.controlPoints.size();
         ++span) {
        const double from = nurb.knots[span];
        const double to = nurb.knots[span + 1];
        if (!(to > from)) {
            continue;
        }
        if (points.empty()) {
            points.push_back(evaluate(nurb, span, from));
        }
        const double middle = 0.5 * (from + to);
        SpanSampling sampling(nurb, span, maxChordError, points);
        sampling.sample(from, middle, mostHalvings);  // halved once: an S may cross its chord
        sampling.sample(middle, to, mostHalvings);
    }
    return points;
}

}  // namespace ge
