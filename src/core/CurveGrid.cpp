#include "src/core/CurveGrid.h"

#include <cmath>

namespace {

constexpr double kWideAxisAbove = 100.0;
constexpr double kSmallestSize = 0.001;

// Two constants: the logarithm of a choice would be computed at every call.
double LogLargestSize(short wideAxis) {
    return wideAxis == 1 ? std::log10(20.0) + 2.0 : std::log10(2.0) + 2.0;
}

}  // namespace

CurveGrid CurveGrid::For(const AcGePoint3d& origin, double width, double height,
                         double largestSize) {
    CurveGrid grid;
    grid.gridOrigin = origin;
    grid.wideAxis = largestSize > kWideAxisAbove ? 1 : 0;
    grid.decadeLength = width / (LogLargestSize(grid.wideAxis) - std::log10(kSmallestSize));
    grid.gridWidth = width;
    grid.gridHeight = height;
    return grid;
}

double CurveGrid::XOfSize(double size) const {
    return gridOrigin.x + (LogLargestSize(wideAxis) - std::log10(size)) * decadeLength;
}

double CurveGrid::YOfPassing(double passing) const {
    return gridOrigin.y - (1.0 - passing) * gridHeight;
}

double CurveGrid::SizeOfX(double x) const {
    return std::pow(10.0, LogLargestSize(wideAxis) - (x - gridOrigin.x) / decadeLength);
}
