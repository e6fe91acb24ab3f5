#pragma once

#include <vector>

namespace picture {

/// The dashes of a line type, as they lie along a course.
class LinePattern {
public:
    struct Dash {
        double from = 0.0;
        double to = 0.0;  ///< the same for a dot
    };

    /// Without dashes: a line that is not broken.
    LinePattern() = default;
    /// Lengths in drawing units: a dash above 0, a gap below, a dot 0.
    explicit LinePattern(std::vector<double> lengths);

    bool isBroken() const { return !lengths_.empty(); }
    /// The dashes along an open course of that length, which starts and ends with at least half
    /// of the pattern's first dash; those of a closed one are fitted around it. Empty when the
    /// course is not to be broken: it has no room for the pattern, or for far too many of them.
    std::vector<Dash> along(double length, double scale, bool closed) const;

private:
    std::vector<double> lengths_;
    double total_ = 0.0;
};

}  // namespace picture
