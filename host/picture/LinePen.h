#pragma once

#include <span>
#include <vector>

#include "host/picture/DisplayList.h"
#include "host/picture/LinePattern.h"
#include "host/picture/WideLineRun.h"

namespace picture {

/// Draws lines into a display list, broken into the dashes of a line type.
class LinePen {
public:
    /// Draws nothing more once the list has more than `mostShapes`.
    LinePen(DisplayList& list, std::size_t mostShapes) : list_(list), mostShapes_(mostShapes) {}

    int colorIndex = 7;
    float lineWeight = 0.0F;  ///< millimetres of paper, below 0 the default
    /// Null for lines that are not broken. Must outlive the drawing with it.
    const LinePattern* pattern = nullptr;
    double patternScale = 1.0;

    /// The pattern starts anew where the line turns sharply, as it does in the segments of a
    /// polyline, and runs on along the chords of a curve.
    void drawPolyline(std::span<const Point> points);
    void drawArc(const Arc& arc);
    /// The parts of the segment that are drawn.
    std::vector<WideLineRun::Segment> dashesOf(const WideLineRun::Segment& segment) const;

private:
    std::vector<LinePattern::Dash> dashesAlong(double length, bool closed) const {
        return pattern == nullptr ? std::vector<LinePattern::Dash>()
                                  : pattern->along(length, patternScale, closed);
    }
    void drawCourse(std::span<const Point> points);
    bool isFull() const { return list_.shapeCount() > mostShapes_; }

    DisplayList& list_;
    std::size_t mostShapes_;
    std::vector<double> lengths_;  ///< of a course, up to each of its points
    std::vector<Point> dash_;
};

}  // namespace picture
