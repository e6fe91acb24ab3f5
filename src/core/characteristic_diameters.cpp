#include "src/core/characteristic_diameters.h"

std::optional<double> Determined(double value) {
    return value > kNotDeterminedUpTo ? std::optional(value) : std::nullopt;
}

std::optional<double> DeterminedDiameter(std::span<const double> diameters, DiameterIndex index) {
    const auto i = static_cast<std::size_t>(index);
    return i < diameters.size() ? Determined(diameters[i]) : std::nullopt;
}

std::optional<double> Uniformity(std::span<const double> diameters) {
    const auto d60 = DeterminedDiameter(diameters, kD60);
    const auto d10 = DeterminedDiameter(diameters, kD10);
    if (!d60 || !d10) {
        return std::nullopt;
    }
    return Determined(*d60 / *d10);
}

std::optional<double> Curvature(std::span<const double> diameters) {
    const auto d60 = DeterminedDiameter(diameters, kD60);
    const auto d30 = DeterminedDiameter(diameters, kD30);
    const auto d10 = DeterminedDiameter(diameters, kD10);
    if (!d60 || !d30 || !d10) {
        return std::nullopt;
    }
    return Determined(*d30 * *d30 / (*d10 * *d60));
}
