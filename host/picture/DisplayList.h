#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/picture/plane.h"
#include "platform/db/AcDbObjectId.h"

namespace picture {

enum class ShapeKind : std::uint8_t {
    kPolyline,  ///< a line through points, without a width of its own in the drawing
    kFill,      ///< the area within points, filled by the odd-even rule
    kArc,       ///< part of a circle or all of it, drawn as a line
    kGlyphs,    ///< characters of an installed font
};

/// Something drawn in one colour. Its points, arc or characters are asked of the list.
struct Shape {
    ShapeKind kind = ShapeKind::kPolyline;
    std::uint8_t colorIndex = 7;  ///< 1 to 255; "by layer" and "by block" are resolved
    float lineWeight = 0.0F;      ///< of lines, millimetres of paper; below 0 the default
    bool printed = true;          ///< false: for the screen only
    std::uint32_t first = 0;      ///< where its points, arc or characters start in the list
    std::uint32_t count = 0;      ///< of points; 1 for arcs and runs of characters
    Box box;
};

struct Arc {
    Point center;
    double radius = 0.0;
    double startAngle = 0.0;  ///< radians
    double sweepAngle = 0.0;  ///< counter-clockwise when positive; a whole turn is a circle
};

/// A character in its cell: from (x, 0) to (x + the run's cell width, 1) of the run's own
/// coordinates, y from the baseline to the height of capitals.
struct GlyphCell {
    char32_t character = 0;
    double x = 0.0;
};

/// Characters of one installed font on one baseline.
struct GlyphRun {
    Affine cellToWorld;      ///< text height × width factor along x, text height along y
    double cellWidth = 1.0;  ///< of every character
    std::string font;        ///< family (UTF-8), never empty
    /// Double-byte characters: the glyph's box, not a capital, is as tall as the cell.
    bool fullWidth = false;
    std::vector<GlyphCell> cells;
};

/// What one entity of the drawing draws; shapes of an item stand together, in drawing order.
struct Item {
    AcDbObjectId entity;
    std::uint32_t firstShape = 0;
    std::uint32_t shapeCount = 0;
    Box box;
};

/// A drawing as a painter needs it: plain shapes in world coordinates, in drawing order, with the
/// entity that each belongs to. It holds nothing of the drawing and stays good while that changes.
class DisplayList {
public:
    /// What is added from now on belongs to `entity`.
    void beginItem(AcDbObjectId entity);
    /// Ends the item; one without shapes is dropped.
    void endItem();

    /// Whether what is added from now on is kept at all.
    void setShown(bool shown) { shown_ = shown; }
    /// Whether what is added from now on is printed.
    void setPrinted(bool printed) { printed_ = printed; }
    void addPolyline(std::span<const Point> points, int colorIndex, float lineWeight);
    void addFill(std::span<const Point> points, int colorIndex);
    void addArc(const Arc& arc, int colorIndex, float lineWeight);
    void addGlyphs(GlyphRun run, int colorIndex);

    std::size_t shapeCount() const { return shapes_.size(); }
    std::size_t pointCount() const { return points_.size(); }
    /// Notes that the drawing makes more than the list takes.
    void endEarly() { endedEarly_ = true; }
    bool isWhole() const { return !endedEarly_; }

    const std::vector<Item>& items() const { return items_; }
    std::span<const Shape> shapes(const Item& item) const {
        return std::span(shapes_).subspan(item.firstShape, item.shapeCount);
    }
    std::span<const Point> points(const Shape& shape) const {
        return std::span(points_).subspan(shape.first, shape.count);
    }
    const Arc& arc(const Shape& shape) const { return arcs_[shape.first]; }
    const GlyphRun& glyphs(const Shape& shape) const { return runs_[shape.first]; }
    /// Around everything drawn; empty for an empty list.
    const Box& box() const { return box_; }
    /// Around what is printed.
    const Box& printedBox() const { return printedBox_; }

private:
    void addPoints(ShapeKind kind, std::span<const Point> points, int colorIndex, float lineWeight);
    void add(Shape shape, int colorIndex);

    std::vector<Item> items_;
    std::vector<Shape> shapes_;
    std::vector<Point> points_;
    std::vector<Arc> arcs_;
    std::vector<GlyphRun> runs_;
    Box box_;
    Box printedBox_;
    bool shown_ = true;
    bool printed_ = true;
    bool endedEarly_ = false;
};

}  // namespace picture
