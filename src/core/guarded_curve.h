#pragma once

#include "platform/ge/AcGePoint3d.h"
#include "src/core/CurveGrid.h"

/// The measured points (from the coarsest sieve to the finest) with further points between them, by
/// which the curve through all does what a grading does.
///
/// The curve through the measured points alone is a smooth spline. Where one class holds much of
/// the mass it may swing out so far that it runs back in size, rises towards finer sizes or leaves
/// the range from 0 to 100 %. Further points are put on the monotone cubic over the logarithm of
/// size through the measured ones (slopes: weighted harmonic mean, at the ends from three points),
/// where the curve does so, until it does by less than 0.05 drawing units and 0.05 %, each diameter
/// read off it lies between the two sizes measured around its level, and the diameters are in
/// order. None of them can be left out again. Where measured points themselves rise or leave the
/// range, following them is no fault.
///
/// Points whose curve is in order, is not valid or not finite come back unchanged.
AcGePoint3dArray GuardedPoints(const AcGePoint3dArray& measured, const CurveGrid& grid);
