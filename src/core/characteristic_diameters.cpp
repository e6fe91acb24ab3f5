#include "src/core/characteristic_diameters.h"

std::optional<double> DeterminedDiameter(std::span<const double> diameters, DiameterIndex index) {
    const auto i = static_cast<std::size_t>(index);
    if (i >= diameters.size() || !(diameters[i] > kNotDeterminedUpTo)) {
        return std::nullopt;
    }
    return diameters[i];
}

std::optional<double> Uniformity(std::span<const double> diameters) {
    const auto d60 = DeterminedDiameter(diameters, kD60);
    const auto d10 = DeterminedDiameter(diameters, kD10);
    if (!d60 || !d10) {
        return std::nullopt;
    }
    return *d60 / *d10;
}

std::optional<double> Curvature(std::span<const double> diameters) {
    const auto d60 = DeterminedDiameter(diameters, kD60);
    const auto d30 = DeterminedDiameter(diameters, kD30);
    const auto d10 = DeterminedDiameter(diameters, kD10);
    if (!d60 || !d30 || !d10) {
        return std::nullopt;
    }
    return *d30 * *d30 / (*d10 * *d60);
}
