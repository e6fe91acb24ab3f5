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
    /// Mirror in the vertical plane (parallel to z) that contains the two points; the identity when
    /// they do not name one.
    static AcGeMatrix3d mirroring(const AcGePoint3d& first, const AcGePoint3d& second);

    /// From the coordinates of the plane through the origin with that normal to the world's, the
    /// plane's x axis lying as drawing files have it (the arbitrary axis rule). The identity for
    /// (0, 0, 1). The normal need not be of length 1; a null vector counts as (0, 0, 1).
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    /// The way back of planeToWorld.
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);

    /// First this map's right operand, then this map.
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    double operator()(unsigned row, unsigned column) const { return entry[row][column]; }

    double entry[4][4];
};
