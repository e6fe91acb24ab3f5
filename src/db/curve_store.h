#pragma once

#include <array>
#include <string>

#include "src/core/characteristic_diameters.h"

/// A curve's key and diameters, as the curve has them.
struct CurveValues {
    int projectIndex = 0;
    std::string borehole;  ///< key in sample charts, GBK
    std::string sample;
    int mainLayer = 0;  ///< key in layer charts
    int subLayer = 0;
    /// In mm, in the order of DiameterIndex; at or below kNotDeterminedUpTo: not determined.
    std::array<double, kDiameterCount> diameters{};
};

/// Writes the diameters and the two coefficients in one step: with `chartMode` kSampleCharts into
/// the sample's result row, with kLayerCharts into the layer's parameter rows, otherwise nowhere. 1
/// done, even when the database refused single rows; 0 when the table did not open (told to the
/// user in sample charts only), there is no row for the sample or layer, or the database could not
/// be written at all.
int StoreCurveValues(const CurveValues& curve, int chartMode);
