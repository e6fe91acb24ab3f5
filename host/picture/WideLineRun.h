#pragma once

#include <vector>

#include "host/picture/plane.h"

namespace picture {

/// Lines with widths that follow each other, as one outline with mitred joints.
class WideLineRun {
public:
    struct Segment {
        Point start;
        Point end;
        double startWidth = 0.0;
        double endWidth = 0.0;
    };

    bool isEmpty() const { return segments_.empty(); }
    /// True when the segment goes on where the run ends, with the width it has there.
    bool continues(const Segment& segment) const;
    /// Adds a segment that continues the run; one without length is left out.
    void add(const Segment& segment);
    /// The outline of what was added, to be filled by the odd-even rule; empties the run. A
    /// run that ends where it starts is closed with a mitre and has its hole cut out by a bridge.
    std::vector<Point> take();

private:
    std::vector<Segment> segments_;
};

}  // namespace picture
