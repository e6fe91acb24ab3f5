#pragma once

#include <vector>

#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "src/core/CurveGrid.h"

/// Something that a curve through measured points does and a grading cannot.
struct CurveFault {
    enum class Kind {
        kRunsBack,  ///< to larger sizes: some sizes have several percentages
        kRises,     ///< towards finer sizes
        kAboveAll,  ///< above 100 %
        kBelowNone  ///< below 0 %
    };
    Kind kind;
    double from;    ///< mm, where it begins
    double to;      ///< mm, where it has gone furthest
    double amount;  ///< how far: mm of the sheet for kRunsBack, percent for the others
};

/// How far a curve may go wrong before it counts: what nobody can see on the sheet.
inline constexpr double kToleratedRunBack = 0.05;  ///< mm of the sheet
inline constexpr double kToleratedPercent = 0.05;

/// The faults of a curve, each kind once, where it is worst. None of one that is not valid.
std::vector<CurveFault> FindCurveFaults(const AcGeCubicSplineCurve3d& curve, const CurveGrid& grid);
