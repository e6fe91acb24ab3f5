#pragma once

#include <algorithm>
#include <limits>

/// Places, boxes and maps of the drawing plane, drawing units.
namespace picture {

struct Point {
    double x = 0.0;
    double y = 0.0;

    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point p, double factor) { return {p.x * factor, p.y * factor}; }
    friend bool operator==(const Point&, const Point&) = default;
};

/// An axis-parallel box, empty until something was added.
struct Box {
    static constexpr double kFar = std::numeric_limits<double>::infinity();
    double left = kFar;
    double bottom = kFar;
    double right = -kFar;
    double top = -kFar;

    bool isEmpty() const { return left > right; }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    void add(Point p) {
        left = std::min(left, p.x);
        bottom = std::min(bottom, p.y);
        right = std::max(right, p.x);
        top = std::max(top, p.y);
    }
    void add(const Box& other) {
        left = std::min(left, other.left);
        bottom = std::min(bottom, other.bottom);
        right = std::max(right, other.right);
        top = std::max(top, other.top);
    }
    /// True also when only the edges touch.
    bool meets(const Box& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top &&
               other.bottom <= top;
    }
    bool contains(const Box& other) const {
        return left <= other.left && other.right <= right && bottom <= other.bottom &&
               other.top <= top;
    }
};

/// An affine map: x and y become origin + x * alongX + y * alongY.
struct Affine {
    Point origin;
    Point alongX{1.0, 0.0};
    Point alongY{0.0, 1.0};

    Point map(Point p) const { return origin + alongX * p.x + alongY * p.y; }
};

}  // namespace picture
