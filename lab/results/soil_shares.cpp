#include "lab/results/soil_shares.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "platform/win32/code_page.h"
#include "src/core/curve_shape.h"
#include "src/core/number_format.h"
#include "src/core/percentages.h"
#include "src/core/soil_classification.h"

namespace lab {

namespace {
constexpr double kGravelBound = 2.0;
constexpr double kSandBound = 0.075;
constexpr double kSiltBound = 0.005;
constexpr double kNothing = 1e-9;

/// The share finer than a size; nothing when it is below the finest sieve and that one does not
/// hold back all.
std::optional<double> ShareFinerThan(double size, const std::vector<double>& sizes,
                                     const std::vector<double>& passing) {
    const auto below =
        std::find_if(sizes.begin(), sizes.end(), [&](double sieve) { return sieve < size; }) -
        sizes.begin();
    const auto finer = static_cast<std::size_t>(below);
    if (finer == 0) {
        return 1.0;
    }
    const double above = passing[finer - 1];
    if (sizes[finer - 1] == size) {
        return above;
    }
    if (finer == sizes.size() || sizes[finer] <= 0.0) {
        return above < kNothing ? std::optional(0.0) : std::nullopt;
    }
    const double part =
        std::log(sizes[finer - 1] / size) / std::log(sizes[finer - 1] / sizes[finer]);
    return above + (passing[finer] - above) * part;
}

/// The parts of a whole in percent, one decimal, adding up to 100: what rounding leaves goes to the
/// largest.
void EvenOut(std::vector<double>& parts) {
    for (double& part : parts) {
        part = RoundAsPrinted(part * 100.0, 1);
    }
    const double missing = 100.0 - std::accumulate(parts.begin(), parts.end(), 0.0);
    double& largest = *std::max_element(parts.begin(), parts.end());
    largest = RoundAsPrinted(largest + missing, 1);
}
}  // namespace

SoilShares SoilSharesOf(const GrainSizeRecord& record) {
    std::vector<double> passing;
    ComputePassing(record, passing);
    std::vector<std::optional<double>*> known;
    std::vector<double> parts;
    SoilShares shares;
    const std::pair<std::optional<double>*, double> bounds[] = {
        {&shares.gravel, kGravelBound}, {&shares.sand, kSandBound}, {&shares.silt, kSiltBound}};
    double coarser = 1.0;
    const bool hasFines = std::any_of(record.sizes.begin(), record.sizes.end(),
                                      [](double size) { return size > 0.0 && size < kSandBound; });
    for (const auto& [share, bound] : bounds) {
        const std::optional<double> finer = ShareFinerThan(bound, record.sizes, passing);
        if (!finer || (share == &shares.silt && !hasFines)) {
            break;
        }
        known.push_back(share);
        parts.push_back(coarser - *finer);
        coarser = *finer;
    }
    parts.push_back(coarser);
    if (known.size() == std::size(bounds)) {
        known.push_back(&shares.clay);
    }
    EvenOut(parts);
    for (std::size_t i = 0; i < known.size(); ++i) {
        *known[i] = parts[i];
    }
    return shares;
}

std::string SoilNameOf(const GrainSizeRecord& record, int standardCode) {
    GrainSizeRecord shown = record;
    NudgeToHundred(shown.amounts, shown.totalMass);
    return win32::Utf8FromGbk(ClassifySoil(shown, standardCode));
}

}  // namespace lab
