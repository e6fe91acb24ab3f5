#pragma once

#include <cstddef>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

/// The monotone cubic through points whose x does not fall: Hermite pieces whose slopes are the
/// weighted harmonic means of the straight slopes around a point, 0 where these have different
/// signs. Points of one x stand above each other on a straight piece; on both sides of it the cubic
/// begins anew. The points must outlive it.
class MonotoneCubic {
public:
    explicit MonotoneCubic(const std::vector<AcGePoint3d>& points);

    /// The point half way in x between two points of the piece that starts at that point.
    AcGePoint3d Between(std::size_t piece, const AcGePoint3d& a, const AcGePoint3d& b) const;

private:
    double Width(std::size_t piece) const { return points_[piece + 1].x - points_[piece].x; }
    double Secant(std::size_t piece) const {
        return (points_[piece + 1].y - points_[piece].y) / Width(piece);
    }
    bool IsUpright(std::size_t piece) const;
    /// Of the points from `first` to `last`, between which no piece is upright.
    void SetSlopes(std::size_t first, std::size_t last);
    double At(std::size_t piece, double x) const;

    const std::vector<AcGePoint3d>& points_;
    std::vector<double> slopes_;
};
