#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "host/picture/ShapeFontFile.h"
#include "host/picture/plane.h"

namespace picture {

/// Follows the commands of a shape: a high nibble above 0 is a length with one of sixteen
/// directions, any other byte one of fifteen commands (end, pen, scale, place kept, shape within
/// shape, steps, arcs, vertical texts only). Coordinates are the font's units from the shape's
/// start.
class ShapePen {
public:
    explicit ShapePen(const ShapeFontFile& font) : font_(font) {}

    /// False when the commands end too early, hold one that there is not, or do not come to an end.
    bool draw(int number);

    const std::vector<std::vector<Point>>& strokes() const { return strokes_; }
    /// Where the pen is at last: where the next character starts.
    Point place() const { return place_; }
    /// True when the shape is put together of scaled parts, which leave the pen where it was.
    bool isComposed() const { return composed_; }

private:
    class Commands;
    bool follow(int number);
    bool follow(int command, Commands& commands);
    bool followSubshape(Commands& commands);
    bool followPart(Commands& commands);
    void skip(Commands& commands);
    void step(double dx, double dy);
    void stepAlong(int lengthAndDirection);
    void octantArc(double radius, int octants, double startOffset, double endOffset);
    void bulgeArc(double dx, double dy, int bulge);
    void arcTo(Point center, double startAngle, double sweep, Point end);
    void lineTo(Point place);

    const ShapeFontFile& font_;
    std::vector<std::vector<Point>> strokes_;
    std::vector<Point> kept_;
    Point place_;
    Point scale_{1.0, 1.0};
    bool penDown_ = true;
    bool composed_ = false;
    bool inStroke_ = false;  ///< the last stroke ends at the pen
    int depth_ = 0;
    int steps_ = 0;
};

}  // namespace picture
