#include "src/entity/curve_labels.h"

#include "src/core/characteristic_diameters.h"
#include "src/core/number_format.h"

namespace {

constexpr int kCumulativeChart = 2;

std::string ValueText(std::optional<double> value, ResultValueMode mode) {
    return value ? FormatResultValue(*value, mode) : std::string();
}

}  // namespace

std::vector<std::string> CurveLabelTexts(int chartType, std::span<const double> diameters) {
    const auto diameter = [diameters](DiameterIndex index) {
        return ValueText(DeterminedDiameter(diameters, index), kDiameterValue);
    };
    const std::string uniformity = ValueText(Uniformity(diameters), kCoefficientValue);
    const std::string curvature = ValueText(Curvature(diameters), kCoefficientValue);
    if (chartType == kCumulativeChart) {
        return {diameter(kD95), diameter(kD60), diameter(kD50), diameter(kD30),
                diameter(kD10), uniformity,     curvature};
    }
    return {"=" + diameter(kD60), "=" + uniformity, "=" + diameter(kD30), "=" + diameter(kD10),
            "=" + curvature};
}
