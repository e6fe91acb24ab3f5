#pragma once

#include "platform/ge/AcGePoint3d.h"
#include "src/core/characteristic_diameters.h"

/// Grid of a grading chart: size on a logarithmic axis falling from left to right, percent finer on
/// a linear axis, 100 at the top. Lengths in drawing units, sizes in mm, passing shares 0 to 1.
struct CurveGrid {
    AcGePoint3d gridOrigin;  ///< top left corner
    short wideAxis = 0;      ///< 1: sizes from 2000 mm, 0: from 200 mm
    double decadeLength = 0.0;
    double gridWidth = 0.0;
    double gridHeight = 0.0;

    /// The grid whose size axis ends at 0.001 mm on the right edge; it starts at 2000 mm when
    /// `largestSize` is above 100 mm.
    static CurveGrid For(const AcGePoint3d& origin, double width, double height,
                         double largestSize);

    double XOfSize(double size) const;
    double YOfPassing(double passing) const;
    double SizeOfX(double x) const;
    double YOfLevel(const DiameterLevel& level) const {
        return gridOrigin.y - level.tenthsDown * gridHeight / 10.0;
    }
    double Left() const { return gridOrigin.x; }
    double Right() const { return gridOrigin.x + gridWidth; }
    double Top() const { return gridOrigin.y; }
    double Bottom() const { return gridOrigin.y - gridHeight; }
};
