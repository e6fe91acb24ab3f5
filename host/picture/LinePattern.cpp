#include "host/picture/LinePattern.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace picture {

LinePattern::LinePattern(std::vector<double> lengths) : lengths_(std::move(lengths)) {
    for (const double length : lengths_) {
        total_ += std::abs(length);
    }
    const auto isGap = [](double length) { return length < 0.0; };
    if (!std::isfinite(total_) || std::none_of(lengths_.begin(), lengths_.end(), isGap)) {
        lengths_.clear();
    }
}

std::vector<LinePattern::Dash> LinePattern::along(double length, double scale, bool closed) const {
    constexpr double kMostDashes = 4'000.0;
    constexpr double kRounding = 1e-9;
    const double period = total_ * scale;
    const double count = std::floor(length / period + kRounding);
    if (lengths_.empty() || !(period > 0.0) || !(count >= 1.0) ||
        count * static_cast<double>(lengths_.size()) > kMostDashes) {
        return {};
    }
    // A first dash has room to be cut or lengthened at both ends of the course, a dot has none.
    const double first = lengths_.front();
    const bool fitsByEnds = !closed && first > 0.0;
    const double factor = fitsByEnds ? scale : length * scale / (count * period);
    const double end = fitsByEnds ? 0.5 * (first * scale + length - count * period) : 0.0;

    std::vector<Dash> dashes;
    double at = 0.0;
    const auto add = [&](double dash) {
        if (dash >= 0.0) {
            dashes.push_back({at, at + dash});
        }
        at += std::abs(dash);
    };
    const auto repetitions = static_cast<int>(count);
    for (int i = 0; i < repetitions; ++i) {
        add(i == 0 && fitsByEnds ? end : first * factor);
        for (std::size_t k = 1; k < lengths_.size(); ++k) {
            add(lengths_[k] * factor);
        }
    }
    if (fitsByEnds) {
        dashes.push_back({length - end, length});
    } else if (!closed && first == 0.0) {
        dashes.push_back({length, length});
    }
    return dashes;
}

}  // namespace picture
