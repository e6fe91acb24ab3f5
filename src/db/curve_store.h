#pragma once

#include <array>
#include <string>

/// A curve's key and diameters, as the curve has them.
struct CurveValues {
    int projectIndex = 0;
    std::string borehole;  ///< key in sample charts, GBK
    std::string sample;
    int mainLayer = 0;  ///< key in layer charts
    int subLayer = 0;
    /// d95, d85, d60, d50, d30, d15, d10, d90 in mm; at or below 0.0001: not determined.
    std::array<double, 8> diameters{};
};

/// Writes the diameters and the two coefficients: with `chartMode` kSampleCharts into the sample's
/// result row, with kLayerCharts into the layer's parameter rows, otherwise nowhere. 1 done, even
/// when single rows could not be written; 0 when the table did not open (told to the user in sample
/// charts only) or there is no row for the sample or layer.
int StoreCurveValues(const CurveValues& curve, int chartMode);
