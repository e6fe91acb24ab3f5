#pragma once

/// Scale factors of a block reference.
struct AcGeScale3d {
    constexpr AcGeScale3d() = default;
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};
