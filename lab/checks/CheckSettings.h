#pragma once

#include "src/core/curve_shape.h"

namespace lab {

/// What the checks go by, besides the data.
struct CheckSettings {
    double massLoss = 1.0;   ///< percent of the total that may be missing; [Check] MassLoss
    bool recompute = false;  ///< layers are drawn scaled to a sum of 100 %
    CurveForm curve = CurveForm::plain;  ///< in which curves are drawn; [Curve] Guard
};

/// Those of the open suite's settings profile. Failure when it cannot be read, or MassLoss is no
/// number from 0 up.
CheckSettings ReadCheckSettings();

}  // namespace lab
