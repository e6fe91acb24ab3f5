#pragma once

#include "platform/ge/AcGePoint3d.h"

/// Affine map of space: a point is a column vector, multiplied from the left.
class AcGeMatrix3d {
public:
    /// The identity.
    AcGeMatrix3d();

    static AcGeMatrix3d translation(const AcGeVector3d& offset);
    /// Counter-clockwise about `axis` through `center`, radians.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = {});
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = {});
    /// Mirror in the vertical plane (parallel to z) that contains the two points.
    static AcGeMatrix3d mirroring(const AcGePoint3d& first, const AcGePoint3d& second);

    /// First this map's right operand, then this map.
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    double operator()(unsigned row, unsigned column) const { return entry[row][column]; }

    double entry[4][4];
};
